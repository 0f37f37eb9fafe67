#!/usr/bin/env bash
# Builds the fuzz targets with clang, AddressSanitizer and UBSan, and runs each for a number of
# seconds, starting from the committed seeds plus the real statements in ../shared/corpus when
# that folder exists (copied into a scratch corpus, never into the repository).
# Exits non-zero when any target finds a crash, a hang, a leak or a failed check; the input that
# did it is left in build-fuzz/findings/.
#
#   scripts/fuzz.sh [SECONDS] [TARGET...]     (default: 60 seconds, every target)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
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
