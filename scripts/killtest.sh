#!/usr/bin/env bash
# Kills tavvel-cli with SIGKILL at random moments of real runs and checks that every file it
# writes is afterwards exactly the version from before the run or exactly the one an unkilled
# run writes, never a mix, and that the next start reads the preferences cleanly. Kinds of file:
# the preference store, an output file written new, an output file appended to, a
# continuation file, and an exported input format. After the trials of a kind, one more
# unkilled run must leave no temporary file beside its target.
#
# Old and new versions are decoded once (property lists with plistlib, QIF by its lines); a file
# byte for byte equal to one of them decodes too. After every trial the next start must succeed
# without setting the preference store aside as undecodable.
#
#   scripts/killtest.sh [TRIALS] [TAVVEL_CLI] [KIND...]   (default 1000 trials per kind,
#                               build/bin/tavvel-cli, every kind: prefs output_new
#                               output_appended continuation format_export)
# Damaged files are copied to build/killtest/.
# Prints, per kind, the trials, how many were killed before they ended, and how many left the
# old version, the new one, an earlier whole save of the same run (the preference store is
# saved at several steps of a run; the distinct ones are kept in build/killtest/) or a damaged
# file. Exits non-zero on any damaged file or failed start.
set -Eeuo pipefail
# A setup step that fails would otherwise end the script without a word.
trap 'echo "killtest: a step failed at line $LINENO" >&2' ERR
cd "$(dirname "$0")/.."
trials=${1:-1000}
cli=$(realpath "${2:-build/bin/tavvel-cli}")
shift $(($# < 2 ? $# : 2))
kinds=("$@")
[[ ${#kinds[@]} -gt 0 ]] || kinds=(prefs output_new output_appended continuation format_export)
# Damaged files are kept here for a look.
keep=$PWD/build/killtest
mkdir -p "$keep"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LC_ALL
export LC_TIME=C TZ=America/New_York
# A pipe nobody writes to: `read -t` on it waits a fraction of a second without a process.
mkfifo "$work/pause"
exec {pause}<>"$work/pause"
failures=0

# A statement big enough that writing its output takes a while, so that kills land in writes.
python3 - "$work/bank.qif" <<'EOF'
import random, sys
random.seed(28)
lines = ['!Type:Bank']
for i in range(300):
    lines += ['D%d/%d/2024' % (1 + i % 12, 1 + i % 28),
              'T-%d.%02d' % (random.randint(1, 999), random.randint(0, 99)),
              'PPAYEE %d' % (i % 97), 'Mmemo %d' % i, '^']
open(sys.argv[1], 'w').write('\n'.join(lines) + '\n')
EOF
printf '%s\n' '!Option:AutoSwitch' '!Account' 'NChecking' 'TBank' '^' '!Clear:AutoSwitch' \
    >"$work/accounts.qif"
format_file() { # NAME MATCH
    printf '%s\n' '<?xml version="1.0" encoding="UTF-8"?>' '<plist version="1.0">' '<dict>' \
        "<key>Name</key><string>$1</string>" '<key>Fields</key><string>CSV</string>' \
        "<key>Match</key><string>$2</string>" '</dict>' '</plist>'
}
format_file Visa "VISA STATEMENT" >"$work/visa.tvfm"
format_file Amex "AMEX STATEMENT" >"$work/amex.tvfm"

# quiet ARGS...: tavvel-cli under --batch with the kind's configuration, output discarded.
quiet() { "$cli" --batch "$@" </dev/null >/dev/null 2>&1; }

# decodes FILE: a property list that loads, or QIF whose every line is a header or a field and
# whose last record is closed (a file of several account blocks is whole QIF that the reader
# still refuses to convert, one account at a time, so it is checked here instead).
decodes() {
    python3 - "$1" <<'EOF'
import plistlib, sys
path = sys.argv[1]
if not path.endswith('.qif'):
    plistlib.load(open(path, 'rb'))
    sys.exit(0)
lines = open(path, encoding='utf-8').read().split('\n')
assert lines[-1] == '' and lines[-2] == '^', 'last record not closed'
assert all(l[:1] in set('!DTUPMNLCSEA$^') for l in lines[:-1]), 'a line is no QIF field'
EOF
}

# Per kind: setup_KIND prepares the configuration and the target's old version in the current
# folder; the variables target, input (standard input) and args describe the run.
setup_prefs() {
    quiet
    target=$XDG_CONFIG_HOME/Tavvel/TavvelMain.prefs input=/dev/null
    args=(--batch -o "$PWD/out.qif" --from 3/1/2024 --to 3/31/2024 "$work/bank.qif")
}
setup_output_new() {
    quiet
    target=$PWD/out.qif input=/dev/null
    args=(--batch -o "$target" --all "$work/bank.qif")
}
setup_output_appended() {
    quiet
    quiet "$work/accounts.qif" || true # imported; "No Transactions" makes it exit 1
    quiet --set append
    target=$PWD/out.qif input=/dev/null
    quiet -o "$target" --account Checking --from 1/1/2024 --to 1/31/2024 "$work/bank.qif"
    args=(--batch -o "$target" --account Checking --append --from 2/1/2024 --to 12/31/2024
        "$work/bank.qif")
}
setup_continuation() {
    quiet
    quiet --set confirmAllTransactions
    target=$PWD/bank.tvcn input=$work/finish-later
    printf 'cancel\n2\n' >"$input"
    args=(-o "$PWD/out.qif" "$work/bank.qif")
}
setup_format_export() {
    quiet
    quiet "$work/visa.tvfm"
    quiet "$work/amex.tvfm"
    target=$PWD/format.tvfm input=/dev/null
    quiet --export-format Amex "$target"
    args=(--batch --export-format Visa "$target")
}

# restore: the configuration and the target as they were before the run; files beside them,
# such as temporaries a killed run left, stay.
restore() {
    cp -a "$dir/config-before/." "$XDG_CONFIG_HOME/"
    rm -rf "$XDG_DATA_HOME" # no run's transactions are duplicates of an earlier trial's
    if [ -e "$dir/old" ]; then cp "$dir/old" "$target"; else rm -f "$target"; fi
}

# starts_cleanly: the next start succeeds and reads the preference store; a store it cannot
# decode would be set aside as *.corrupt-*.
starts_cleanly() {
    quiet --settings && [ -z "$(find "$XDG_CONFIG_HOME/Tavvel" -name '*.corrupt-*' -print -quit)" ]
}

now_us() { local t=${EPOCHREALTIME/./}; echo $((10#$t)); }

run_kind() {
    local kind=$1 killed=0 old=0 new=0 between=0 damaged=0 i start longest=0 delay pid status
    dir=$work/$kind
    mkdir -p "$dir/run" "$dir/home"
    export XDG_CONFIG_HOME=$dir/config HOME=$dir/home XDG_DATA_HOME=$dir/data
    cd "$dir/run"
    "setup_$kind"
    cp -a "$XDG_CONFIG_HOME" "$dir/config-before"
    if [ -e "$target" ]; then cp "$target" "$dir/old"; fi
    # The new version and the run's typical length, from unkilled runs.
    for i in 1 2 3; do
        restore
        start=$(now_us)
        "$cli" "${args[@]}" <"$input" >/dev/null 2>&1 || true
        delay=$(($(now_us) - start))
        if ((delay > longest)); then longest=$delay; fi
    done
    cp "$target" "$dir/new"
    cmp -s "$dir/new" "$dir/old" 2>/dev/null && { echo "$kind: the run changes nothing" >&2; exit 2; }
    for f in "$dir/old" "$dir/new"; do
        [ ! -e "$f" ] || { cp "$f" "$work/check.${target##*.}" && decodes "$work/check.${target##*.}"; } ||
            { echo "$kind: $f does not decode" >&2; exit 2; }
    done
    for ((i = 0; i < trials; i++)); do
        restore
        delay=$(((RANDOM << 15 | RANDOM) % longest))
        "$cli" "${args[@]}" <"$input" >/dev/null 2>&1 &
        pid=$!
        read -r -t "$((delay / 1000000)).$(printf '%06d' $((delay % 1000000)))" -u "$pause" || true
        kill -KILL "$pid" 2>/dev/null || true
        status=0
        wait "$pid" 2>/dev/null || status=$?
        if ((status == 137)); then killed=$((killed + 1)); fi
        if [ ! -e "$target" ] && [ ! -e "$dir/old" ] || cmp -s "$target" "$dir/old" 2>/dev/null; then
            old=$((old + 1))
        elif cmp -s "$target" "$dir/new"; then
            new=$((new + 1))
        elif [ "$kind" = prefs ] && starts_cleanly; then
            # The store is saved more than once in a run: this is an earlier save, whole.
            between=$((between + 1))
            cp "$target" "$keep/between-$(md5sum <"$target" | cut -c1-8)"
        else
            damaged=$((damaged + 1))
            cp "$target" "$keep/damaged-$kind-$i" 2>/dev/null || true
        fi
        starts_cleanly || { echo "$kind trial $i: the next start failed" >&2; failures=$((failures + 1)); }
    done
    # One more run to its end clears what the killed ones left beside the target.
    restore
    "$cli" "${args[@]}" <"$input" >/dev/null 2>&1 || true
    local left
    left=$(find "$(dirname "$target")" "$XDG_CONFIG_HOME/Tavvel" -maxdepth 1 -name '*.tmp-*' | wc -l)
    ((left == 0)) || { echo "$kind: $left temporary files left after a clean run" >&2; failures=$((failures + 1)); }
    printf '%-18s %7d %7d %7d %7d %8d %8d\n' "$kind" "$trials" "$killed" "$old" "$new" "$between" \
        "$damaged"
    failures=$((failures + damaged))
    cd "$work"
}

printf '%-18s %7s %7s %7s %7s %8s %8s\n' "file kind" trials killed old new between damaged
for kind in "${kinds[@]}"; do
    run_kind "$kind"
done
((failures == 0)) || { echo "killtest: $failures damaged files or failed starts" >&2; exit 1; }
echo "killtest: every file whole"
