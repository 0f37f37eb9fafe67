#!/usr/bin/env bash
# Time and peak memory of tavvel-cli --batch refusing the big hostile inputs: 200 MB of random
# bytes, one 50 MB line and one 100 MB line without a date, 50 MB of NUL bytes, a 50 MB line
# saved as UTF-16 with a byte-order mark (converted, then refused for want of a date), and a
# 2 GB statement, over the size read whole (refused before it is read). Each is refused; the
# script prints seconds, peak memory in MB and the ratio of peak memory to input size, and fails
# when a run does not exit with status 1 or writes an output file. Then a 500 MB preference
# file: the program starts and reads it, or sets it aside as damaged, never killed for memory.
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
head -c $((100 * mb)) /dev/zero | tr '\0' 'x' >"$work/line100.txt"
# A real statement's transaction, repeated to 2 GB.
printf '!Type:Bank\n' >"$work/huge.qif"
printf 'D1/02/2024\nT-8.50\nPSHOP\n^\n' >"$work/record"
for _ in $(seq 20); do cat "$work/record" "$work/record" >"$work/record2" && mv "$work/record2" "$work/record"; done
while [ "$(stat -c %s "$work/huge.qif")" -lt $((2048 * mb)) ]; do cat "$work/record" >>"$work/huge.qif"; done
rm "$work/record"
head -c $((50 * mb)) /dev/zero >"$work/zeros.bin"
{ printf '\xFF\xFE'; head -c $((25 * mb)) /dev/zero | tr '\0' 'x' | iconv -f ASCII -t UTF-16LE; } \
    >"$work/utf16.txt"

printf '%-12s %9s %8s %8s %10s %8s  %s\n' input "size MB" seconds "cpu s" "peak MB" "peak/size" title
for name in random.bin line.txt line100.txt zeros.bin utf16.txt huge.qif; do
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

# The preference store at 500 MB: one string of that size among the usual keys.
prefs=$XDG_CONFIG_HOME/Tavvel/TavvelMain.prefs
{ sed '$d' "$prefs" | sed '$d'; printf '\t<key>Padding</key>\n\t<string>'
    head -c $((500 * mb)) /dev/zero | tr '\0' 'p'; printf '</string>\n</dict>\n</plist>\n'; } >"$work/big.prefs"
mv "$work/big.prefs" "$prefs"
status=0
/usr/bin/time -f '%e %U %S %M' -o "$work/time" "$cli" --batch --settings </dev/null >/dev/null \
    2>"$work/err" || status=$?
read -r seconds user system kb < <(tail -n 1 "$work/time")
aside=$(find "$XDG_CONFIG_HOME/Tavvel" -name '*.corrupt-*' | wc -l)
awk -v s="$(stat -c %s "$prefs")" -v t="$seconds" -v u="$user" -v y="$system" -v k="$kb" \
    -v st="$status" -v a="$aside" 'BEGIN { printf "%-12s %9.1f %8.2f %8.2f %10.1f %8.2f  exit %d, %d set aside\n",
    "big.prefs", s / 1048576, t, u + y, k / 1024, k * 1024 / s, st, a }'
[ "$status" -eq 0 ] || { echo "big.prefs: exit status $status" >&2; cat "$work/err" >&2; exit 1; }
