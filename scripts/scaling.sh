#!/usr/bin/env bash
# A guard against work that grows faster than the statement: tavvel-cli --batch converts
# generated statements of 50,000 and 200,000 transactions of every input kind (OFX bank SGML
# and XML, OFX credit card, QIF, CSV through an input format, OFX investment), and the script fails when the
# 200,000 run takes more than 6 times the 50,000 one. A linear reader or walk stays near 4;
# quadratic growth gives 16, so machine noise cannot trip it. Each time is the best of three.
#
# Usage: scripts/scaling.sh [TAVVEL_CLI]   (default build/bin/tavvel-cli); SCALING_KINDS may
# name some of the kinds alone.
# Statements and outputs go to a folder under TMPDIR, removed at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
cli=$(realpath "${1:-build/bin/tavvel-cli}")
small=50000 large=200000 limit=6
# shellcheck source=bench/generate.sh
source bench/generate.sh

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Each run starts from an empty conversion history: otherwise the runs before it would make
# its transactions duplicates, left out rather than converted.
export XDG_CONFIG_HOME=$work/config HOME=$work/home XDG_DATA_HOME=$work/data
mkdir -p "$HOME"
"$cli" --batch </dev/null >/dev/null 2>&1
"$cli" --batch examples/csv-export.tvfm </dev/null >/dev/null 2>&1

# statement KIND COUNT FILE: the generated statement of that kind.
statement() {
    case $1 in
    ofx-sgml) generate "$2" sgml bank ;;
    ofx-xml) generate "$2" xml bank ;;
    ofx-card) generate "$2" sgml card ;;
    qif) generate_qif "$2" ;;
    csv) generate_csv "$2" ;;
    ofx-invest) generate_investment "$2" ;;
    esac >"$3"
}

# best_seconds FILE COUNT: the shortest of three runs; fails unless every transaction came out.
best_seconds() {
    local best="" start end took
    for _ in 1 2 3; do
        rm -rf "$XDG_DATA_HOME"
        start=$(date +%s%N)
        "$cli" --batch -o "$work/out.qif" "$1" </dev/null >/dev/null 2>&1
        end=$(date +%s%N)
        took=$(((end - start) / 1000))
        [ -z "$best" ] || [ "$took" -lt "$best" ] && best=$took
    done
    local written
    written=$(grep -c '^\^$' "$work/out.qif" || true)
    if [ "$written" -ne "$2" ]; then
        echo "tavvel-cli wrote $written of $2 transactions of $1" >&2
        return 1
    fi
    echo "$best"
}

status=0
printf '%-9s %12s %12s %10s %8s\n' kind "50k s" "200k s" "200k MB/s" ratio
for kind in ${SCALING_KINDS:-ofx-sgml ofx-xml ofx-card qif csv ofx-invest}; do
    statement "$kind" "$small" "$work/small"
    statement "$kind" "$large" "$work/large"
    t_small=$(best_seconds "$work/small" "$small")
    t_large=$(best_seconds "$work/large" "$large")
    bytes=$(stat -c %s "$work/large")
    line=$(awk -v k="$kind" -v s="$t_small" -v l="$t_large" -v b="$bytes" -v limit="$limit" 'BEGIN {
        ratio = l / s
        printf "%-9s %12.3f %12.3f %10.1f %8.2f%s", k, s / 1e6, l / 1e6, b / l, ratio,
            (ratio > limit) ? "  (over " limit ")" : "" }')
    echo "$line"
    [[ $line == *"(over"* ]] && status=1
done
[ "$status" -eq 0 ] && echo "Every kind grows linearly (200k / 50k at most $limit)."
exit "$status"
