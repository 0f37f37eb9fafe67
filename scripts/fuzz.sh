#!/usr/bin/env bash
# Builds the fuzz targets with clang, AddressSanitizer and UBSan, and runs each for a number of
# seconds, starting from the committed seeds plus the real statements in ../shared/corpus when
# that folder exists (copied into a scratch corpus, never into the repository).
# Exits non-zero when any target finds a crash, a hang, a leak or a failed check; the input that
# did it is left in build-fuzz/findings/.
#
#   scripts/fuzz.sh [SECONDS] [TARGET...]     (default: 60 seconds, every target)
#   scripts/fuzz.sh --long HOURS [TARGET...]
#
# The long mode runs each target for HOURS, as many at once as there are cores, then merges
# into fuzz/corpus/<target>/ the inputs that add coverage (libFuzzer -merge=1; see
# keep_new_coverage for the limits that keep the committed corpus small), and prints
# per target the executions, executions per second, coverage (cov and ft from libFuzzer's final
# statistics), the inputs added and each finding with its reproducer path.
set -euo pipefail
cd "$(dirname "$0")/.."
long=
if [[ ${1:-} == --long ]]; then
    long=${2:?--long needs a number of hours}
    shift 2
    seconds=$(awk -v h="$long" 'BEGIN { s = int(h * 3600); print s < 1 ? 1 : s }')
else
    seconds=${1:-60}
    shift || true
fi
build=build-fuzz
targets=("$@")
# Every target: the names of the rows of kTargets in fuzz/Targets.h.
[[ ${#targets[@]} -gt 0 ]] ||
    mapfile -t targets < <(sed -nE 's/^ *\{"([a-z_]+)", [A-Za-z]+\},.*/\1/p' fuzz/Targets.h)

CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DTAVVEL_FUZZ=ON -DTAVVEL_TESTS=OFF -DTAVVEL_GUI=OFF \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j"${FUZZ_JOBS:-2}" --target "${targets[@]/#/fuzz_}"

shared=../shared/corpus
# Real statements for the targets that read them; the format-driven targets take a first byte
# that picks the layout (0: comma-separated).
seed_from_shared() {
    local target=$1 into=$2
    [[ -d $shared ]] || return 0
    case $target in
    ofx_reader) find "$shared" -type f \( -iname '*.ofx' -o -iname '*.qfx' -o -iname '*.sgml' \
        -o -iname '*.xml' \) -exec cp -t "$into" {} + ;;
    qif_reader) find "$shared" -type f -iname '*.qif' -exec cp -t "$into" {} + ;;
    classification) find "$shared" -type f ! -iname '*.md' -exec cp -t "$into" {} + ;;
    text_engine | scanners)
        find "$shared" -type f -iname '*.csv' -print0 | while IFS= read -r -d '' f; do
            { printf '\0'; cat "$f"; } >"$into/shared-$(basename "$f")"
        done ;;
    esac
}

# The file targets write a scratch file per input: memory is faster than disk for that.
[[ -d /dev/shm && -w /dev/shm ]] && export TMPDIR=/dev/shm
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
mkdir -p "$build/findings"

# fuzz_long TARGET: one target for the long run; its log is the table's source.
fuzz_long() {
    local target=$1
    local corpus=$build/long/$target
    mkdir -p "$corpus"
    cp -n fuzz/corpus/"$target"/* "$corpus"/
    seed_from_shared "$target" "$corpus"
    "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -max_len=65536 -print_final_stats=1 -artifact_prefix="$build/findings/$target-" \
        "$corpus" >"$build/long/$target.log" 2>&1 || echo failed >"$build/long/$target.failed"
}

# keep_new_coverage TARGET: the committed corpus gains the inputs that add coverage to it, small
# ones only (FUZZ_KEEP_BYTES, default 2048) and at most FUZZ_KEEP_FILES (default 10) a run, the
# smallest first, so that it stays small and its replay in the tests quick.
keep_new_coverage() {
    local target=$1
    local small=$build/long/$target.small merged=$build/long/$target.merged
    rm -rf "$small" "$merged" && mkdir -p "$small" "$merged"
    find "$build/long/$target" -type f -size -"$((${FUZZ_KEEP_BYTES:-2048} + 1))"c \
        -exec cp -t "$small" {} +
    cp fuzz/corpus/"$target"/* "$merged"/
    "$build/bin/fuzz_$target" -merge=1 -timeout=10 -rss_limit_mb=2048 "$merged" "$small" \
        >"$build/long/$target.merge.log" 2>&1 || true
    local added
    added=$(find "$merged" -type f -printf '%s %f\n' | sort -n | while read -r _ name; do
        [[ -e fuzz/corpus/$target/$name ]] || echo "$name"
    done | head -n "${FUZZ_KEEP_FILES:-10}")
    for name in $added; do cp "$merged/$name" fuzz/corpus/"$target"/; done
    wc -w <<<"$added"
}

stat_of() { # TARGET NAME: a number from libFuzzer's final statistics
    sed -nE "s/^stat::$2: *([0-9]+).*/\1/p" "$build/long/$1.log" | tail -n 1
}

long_run() {
    rm -f "$build"/long/*.failed
    mkdir -p "$build/long"
    touch "$build/long/started" # findings newer than this are this run's
    export -f fuzz_long seed_from_shared
    export build seconds shared
    echo "== ${#targets[@]} targets for ${seconds}s each, $(nproc) at once =="
    printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz_long "$@"' _ {}
    printf '%-18s %12s %9s %7s %8s %6s  %s\n' target executions "exec/s" cov ft added findings
    local target cov ft found bad=0
    for target in "${targets[@]}"; do
        read -r cov ft < <(grep -oE 'cov: [0-9]+ ft: [0-9]+' "$build/long/$target.log" | tail -n 1 |
            awk '{ print $2, $4 }') || true
        found=$(find "$build/findings" -name "$target-*" -newer "$build/long/started" -printf '%p ')
        [[ -z $found && ! -e $build/long/$target.failed ]] || bad=1
        printf '%-18s %12s %9s %7s %8s %6s  %s\n' "$target" "$(stat_of "$target" number_of_executed_units)" \
            "$(stat_of "$target" average_exec_per_sec)" "${cov:-?}" "${ft:-?}" \
            "$(keep_new_coverage "$target")" "${found:-none}"
    done
    return "$bad"
}

if [[ -n $long ]]; then
    long_run
    exit
fi
failed=()
for target in "${targets[@]}"; do
    corpus=$build/corpus/$target
    mkdir -p "$corpus"
    cp fuzz/corpus/"$target"/* "$corpus"/
    seed_from_shared "$target" "$corpus"
    echo "== fuzz_$target for ${seconds}s =="
    if ! "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -max_len=65536 -print_final_stats=1 -artifact_prefix="$build/findings/$target-" \
        "$corpus" 2>"$build/fuzz_$target.log"; then
        failed+=("$target")
        tail -n 40 "$build/fuzz_$target.log"
    fi
    grep -E '^stat::(number_of_executed_units|new_units_added)|cov:' "$build/fuzz_$target.log" |
        tail -n 3 || true
done

if [[ ${#failed[@]} -gt 0 ]]; then
    echo "Fuzzing found problems in: ${failed[*]} (inputs in $build/findings/)"
    exit 1
fi
echo "Fuzzing: no problem found in ${#targets[@]} targets"
