#!/usr/bin/env bash
# Time and peak memory of tavvel-cli --batch refusing the big hostile inputs: 200 MB of random
# bytes, one 50 MB line without a date, 50 MB of NUL bytes, and for comparison a 50 MB line
# saved as UTF-16 with a byte-order mark (converted, then refused for want of a date). Each is
# refused; the script prints seconds, peak memory in MB and the ratio of peak memory to input
# size, and fails when a run does not exit with status 1.
#
# Usage: bench/hostile_inputs.sh [TAVVEL_CLI]   (default build/bin/tavvel-cli; needs GNU time)
# Inputs go to a folder under TMPDIR, removed at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
cli=$(realpath "${1:-build/bin/tavvel-cli}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config HOME=$work/home
mkdir -p "$HOME"
"$cli" --batch </dev/null >/dev/null 2>&1

mb=$((1 << 20))
head -c $((200 * mb)) /dev/urandom >"$work/random.bin"
head -c $((50 * mb)) /dev/zero | tr '\0' 'x' >"$work/line.txt"
head -c $((50 * mb)) /dev/zero >"$work/zeros.bin"
{ printf '\xFF\xFE'; head -c $((25 * mb)) /dev/zero | tr '\0' 'x' | iconv -f ASCII -t UTF-16LE; } \
    >"$work/utf16.txt"

printf '%-12s %9s %8s %8s %10s %8s  %s\n' input "size MB" seconds "cpu s" "peak MB" "peak/size" title
for name in random.bin line.txt zeros.bin utf16.txt; do
    file=$work/$name
    status=0
    /usr/bin/time -f '%e %U %S %M' -o "$work/time" "$cli" --batch -o "$work/out.qif" "$file" \
        </dev/null >/dev/null 2>"$work/err" || status=$?
    [ "$status" -eq 1 ] || { echo "$name: exit status $status, not 1" >&2; cat "$work/err" >&2; exit 1; }
    [ ! -e "$work/out.qif" ] || { echo "$name: an output file was written" >&2; exit 1; }
    read -r seconds user system kb < <(tail -n 1 "$work/time") # after a "non-zero status" line
    size=$(stat -c %s "$file")
    title=$(grep -m1 -o '== .* ==' "$work/err" || echo "?")
    awk -v n="$name" -v s="$size" -v t="$seconds" -v u="$user" -v y="$system" -v k="$kb" \
        -v title="$title" 'BEGIN { printf "%-12s %9.1f %8.2f %8.2f %10.1f %8.2f  %s\n",
        n, s / 1048576, t, u + y, k / 1024, k * 1024 / s, title }'
done
