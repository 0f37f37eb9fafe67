#!/usr/bin/env bash
# The output is written through a symbolic link to the file it names, which keeps its
# permissions, and the link stays a link; a folder or a pipe named as the output is refused
# before the run starts and left as it was, with nothing left beside it.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-1.00' 'PONE' '^' >"$tmp/bank.qif"
expected=$'!Type:Bank\nD1/2/2024\nPONE\nT-1.00\n^\n'
mkdir "$tmp/dest" "$tmp/real"
printf 'old\n' >"$tmp/real/kept.qif"
chmod 640 "$tmp/real/kept.qif"
ln -s ../real/kept.qif "$tmp/dest/link.qif"
run 0 --batch -o "$tmp/dest/link.qif" "$tmp/bank.qif"
[ -L "$tmp/dest/link.qif" ] || fail "the link was replaced"
same "$tmp/real/kept.qif" "$expected"
[ "$(stat -c %a "$tmp/real/kept.qif")" = 640 ] || fail "the file lost its permissions"

mkfifo "$tmp/dest/pipe"
mkdir "$tmp/dest/folder.qif"
ln -s pipe "$tmp/dest/to-pipe"
for place in pipe folder.qif to-pipe; do
    run 1 --batch -o "$tmp/dest/$place" "$tmp/bank.qif"
    said "== Output File Not Written ==" "\"$tmp/dest/$place\" is a folder, a device or a pipe, not \
a file, so the output cannot be written to it.  Choose another output file, then process the \
transactions again."
done
[ -p "$tmp/dest/pipe" ] && [ -d "$tmp/dest/folder.qif" ] || fail "a refused output was replaced"
[ "$(ls "$tmp/dest" "$tmp/real" | tr '\n' ' ')" = "$tmp/dest: folder.qif link.qif pipe to-pipe  $tmp/real: kept.qif " ] ||
    fail "files beside the output: $(ls -A "$tmp/dest" "$tmp/real")"
echo "output_place: ok"
