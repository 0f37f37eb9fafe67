#!/usr/bin/env bash
# The confirmation form answered with piped commands: an unknown command is named and the
# commands listed; the date stepped, a new category warned about; Back, a changed
# description, skip, and splits typed row by row. End of input cancels the form and stops the
# run without writing; finishing later saves a continuation file beside, never over, the
# output file.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
# The same statements are converted here again and again: none is to be left out as converted
# before.
run 0 --set keepDuplicates
"$cli" --batch --set confirmAllTransactions </dev/null 2>/dev/null || fail "option not set"

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-5.00' 'PSHOP' 'Mreceipt 1' '^' \
    'D1/03/2024' 'T-6.00' 'PCAFE' '^' 'D1/04/2024' 'T-7.00' 'PKIOSK' '^' >"$tmp/shop.qif"

# answer STATUS LINES...: a run on shop.qif into $tmp/shop-out.qif, from $tmp/work, with the
# lines on standard input.
mkdir "$tmp/work"
answer() {
    local want=$1 got=0
    shift
    (cd "$tmp/work" && printf '%s\n' "$@" | "$cli" -o "$tmp/shop-out.qif" "$tmp/shop.qif" \
        >"$tmp/out" 2>"$tmp/err") || got=$?
    [ "$got" -eq "$want" ] || fail "exited $got, not $want: $(cat "$tmp/err")"
}

answer 0 frobnicate help 'date +2' 'category Treats' ok help back 'desc SHOP AGAIN' ok skip \
    'splits on' 'split set 1 category Food' 'split set 2 category "Soft Drink"' \
    'split set 1 amount -4.00' 'split set 2 amount -3.00' ok
said 'Unknown command "frobnicate".' "  skip-rest" "  back" "== Confirm Transaction ==" \
    "You asked to confirm all transactions." "  Date: 1/2/2024 (will use 1/4/2024)" \
    "  Category: Treats" "      NEW Category Above" "    2) Soft Drink |  | -3.00"
same "$tmp/shop-out.qif" $'!Type:Bank\nD1/2/2024\nPSHOP AGAIN\nMreceipt 1\nT-5.00\n^\nD1/4/2024\nPKIOSK\nT-7.00\nSFood\nE\n$-4.00\nSSoft Drink\nE\n$-3.00\n^\n'

printf 'keep me\n' >"$tmp/shop-out.qif"
answer 0 ok
same "$tmp/shop-out.qif" $'keep me\n'
said "== Cancel =="

answer 1 ok cancel 2
same "$tmp/shop-out.qif" $'keep me\n'
[ -f "$tmp/work/shop.tvcn" ] || fail "no continuation file: $(ls "$tmp/work") $(cat "$tmp/err")"
grep -qF "<key>currentTransactionIndex</key>" "$tmp/work/shop.tvcn" ||
    fail "the continuation file holds no place in the walk"
echo "confirm form: ok"
