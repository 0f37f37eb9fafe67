#!/usr/bin/env bash
# A run stopped with "finish later" and resumed: the conversion history records the whole run,
# what was confirmed before the stop included, once the resumed run writes its file; the stop
# itself records nothing.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
run 0 --set confirmAllTransactions
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-5.00' 'PSHOP' '^' 'D1/03/2024' 'T-6.00' 'PCAFE' '^' \
    'D1/04/2024' 'T-7.00' 'PKIOSK' '^' >"$tmp/shop.qif"
mkdir "$tmp/work"
answer() {
    local want=$1 input=$2 output=$3 got=0
    shift 3
    (cd "$tmp/work" && printf '%s\n' "$@" | "$cli" -o "$tmp/$output" "$tmp/$input" \
        >"$tmp/out" 2>"$tmp/err") || got=$?
    [ "$got" -eq "$want" ] || fail "exited $got, not $want: $(cat "$tmp/err")"
}

answer 1 shop.qif later.qif ok cancel 2
[ -f "$tmp/work/shop.tvcn" ] || fail "no continuation file: $(cat "$tmp/err")"
run 0 --history ""
same "$tmp/out" $'No transactions were converted for "" yet.\n'

answer 0 work/shop.tvcn later.qif ok ok
said '3 transactions output to file "later.qif".'
run 0 --history ""
[ "$(grep -c $'\t-' "$tmp/out")" -eq 3 ] || fail "the resumed run recorded $(cat "$tmp/out")"
grep -qF $'1/2/2024\t-5.00\t\tSHOP' "$tmp/out" || fail "the part before the stop was lost"

# All three are known now: the statement again is asked about once, and left out.
answer 0 shop.qif again.qif 2
said "All 3 transactions were converted before (on "
said_whole "No transactions output.\r3 duplicate transactions left out."
echo "history resume: ok"
