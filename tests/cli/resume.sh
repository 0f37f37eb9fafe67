#!/usr/bin/env bash
# A run stopped with "finish later" and resumed from its continuation file, with piped
# commands: the output equals the same run confirmed in one go, byte for byte, whether the
# rest is confirmed by hand, stopped once more, or accepted as shown under --batch. Run options
# that the continuation fixes are refused, and a broken continuation file starts nothing.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
# The same statements are converted here again and again: none is to be left out as converted
# before.
run 0 --set keepDuplicates
"$cli" --batch --set confirmAllTransactions </dev/null 2>/dev/null || fail "option not set"

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-5.00' 'PSHOP' 'Mreceipt 1' '^' \
    'D1/03/2024' 'T-6.00' 'PCAFE' '^' 'D1/04/2024' 'T-7.00' 'PKIOSK' '^' \
    'D1/05/2024' 'T1200.00' 'PPAYROLL' '^' >"$tmp/shop.qif"

# answer STATUS INPUT OUTPUT LINES...: tavvel-cli on $tmp/INPUT into $tmp/OUTPUT, from
# $tmp/work (where continuation files are saved), with the lines on standard input.
mkdir "$tmp/work"
answer() {
    local want=$1 input=$2 output=$3 got=0
    shift 3
    (cd "$tmp/work" && printf '%s\n' "$@" | "$cli" -o "$tmp/$output" "$tmp/$input" \
        >"$tmp/out" 2>"$tmp/err") || got=$?
    [ "$got" -eq "$want" ] || fail "exited $got, not $want: $(cat "$tmp/err")"
}

answer 0 shop.qif once.qif ok ok ok ok
grep -qF PPAYROLL "$tmp/once.qif" || fail "the run in one go wrote $(cat "$tmp/once.qif")"

# Two confirmed, then finish later; nothing is written to the output.
answer 1 shop.qif later.qif ok ok cancel 2
[ ! -e "$tmp/later.qif" ] || fail "finishing later wrote the output"
said "== Cancel ==" "Stop now, or keep what is done so far to finish later?"
said_whole "No transactions were placed in the output file.\r\rA continuation file with both your \
processed and unprocessed transactions was created.  You can open it later with Tavvel to \
finish processing your transactions and place all of them in the output file you choose when \
you continue."
mv "$tmp/work/shop.tvcn" "$tmp/stopped.tvcn"

# The options the continuation fixes are refused, and the file stays as it was.
cp "$tmp/stopped.tvcn" "$tmp/before.tvcn"
for option in "--account Checking" "--output-format QIF" "--same-number 12" "--all"; do
    # shellcheck disable=SC2086
    run 2 $option -o "$tmp/later.qif" "$tmp/stopped.tvcn"
    said "tavvel-cli: \"stopped.tvcn\" is a continuation file: the stopped run it holds fixed \
the account, the transactions, the output format, date and number, so the run options cannot \
apply; leave them out and name the output file with -o."
done
cmp -s "$tmp/stopped.tvcn" "$tmp/before.tvcn" || fail "a refused resume changed the file"
[ ! -e "$tmp/later.qif" ] || fail "a refused resume wrote the output"

# Resumed: only the two left are asked about, and all four are written.
answer 0 stopped.tvcn later.qif ok ok
said "Date: 1/4/2024" "4 transactions output to file \"later.qif\"."
grep -qF "Date: 1/3/2024" "$tmp/err" && fail "a confirmed transaction was asked about again"
cmp "$tmp/once.qif" "$tmp/later.qif" >&2 || fail "the resumed run wrote other bytes"

# Resumed and stopped once more after one; the new continuation finishes under --batch.
answer 1 stopped.tvcn again.qif ok cancel 2
[ -f "$tmp/work/stopped.tvcn" ] || fail "no second continuation file: $(cat "$tmp/err")"
(cd "$tmp/work" && "$cli" --batch -o "$tmp/again.qif" "$tmp/work/stopped.tvcn" </dev/null \
    >"$tmp/out" 2>"$tmp/err") || fail "the batch resume failed: $(cat "$tmp/err")"
cmp "$tmp/once.qif" "$tmp/again.qif" >&2 || fail "the twice-resumed run wrote other bytes"

# A continuation file that cannot be saved (a folder holds its name) leaves nothing written.
mkdir "$tmp/work/shop.tvcn"
answer 1 shop.qif blocked.qif ok cancel 2
said "== Continuation File Not Created =="
said_whole "No transactions were placed in the output file.\r\rThe continuation file could not be \
created because of an unknown error."
[ ! -e "$tmp/blocked.qif" ] || fail "a continuation that was not saved wrote the output"
rmdir "$tmp/work/shop.tvcn"

# A continuation file that cannot be decoded, or holds no stopped run, starts nothing.
printf 'not a property list\n' >"$tmp/junk.tvcn"
printf 'keep me\n' >"$tmp/kept.qif"
run 1 --batch -o "$tmp/kept.qif" "$tmp/junk.tvcn"
said "== Invalid Continuation File ==" "Continuation file \"junk.tvcn\" cannot be read as a \
continuation file; it cannot be processed."
same "$tmp/kept.qif" $'keep me\n'
echo "resume: ok"
