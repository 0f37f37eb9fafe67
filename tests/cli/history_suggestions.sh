#!/usr/bin/env bash
# Category suggestions from the conversion history: a payee no instruction matches is shown in
# the new-instruction form with the category filed for a similar one, marked as a suggestion,
# and the shared stem as its match text; under --batch the suggestion is written only with
# --use-suggestions.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
run 0 --unset dontAddCategories

# What the history learns from: payees filed under their categories.
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-52.10' 'PGROCERY OUTLET #0412 SEATTLE WA' 'LGroceries' '^' \
    'D1/03/2024' 'T-40.00' 'PSHELL OIL 57442213' 'LAuto:Fuel' '^' \
    'D1/05/2024' 'T-38.00' 'PSHELL OIL 57449999' 'LAuto:Fuel' '^' >"$tmp/filed.qif"
run 0 --batch -o "$tmp/filed-out.qif" "$tmp/filed.qif"

printf '%s\n' '!Type:Bank' 'D2/02/2024' 'T-61.30' 'PSQ *GROCERY OUTLET #0977' '^' \
    'D2/03/2024' 'T-35.00' 'PPOS Shell Oil 1234' '^' 'D2/04/2024' 'T-9.99' 'PNEW PLACE' '^' \
    >"$tmp/new.qif"
run 0 --batch -o "$tmp/plain.qif" "$tmp/new.qif"
same "$tmp/plain.qif" $'!Type:Bank\nD2/2/2024\nPSQ *GROCERY OUTLET #0977\nT-61.30\n^\nD2/3/2024\nPPOS Shell Oil 1234\nT-35.00\n^\nD2/4/2024\nPNEW PLACE\nT-9.99\n^\n'
run 0 --batch --keep-duplicates --use-suggestions -o "$tmp/suggested.qif" "$tmp/new.qif"
same "$tmp/suggested.qif" $'!Type:Bank\nD2/2/2024\nPSQ *GROCERY OUTLET #0977\nT-61.30\nLGroceries\n^\nD2/3/2024\nPPOS Shell Oil 1234\nT-35.00\nLAuto:Fuel\n^\nD2/4/2024\nPNEW PLACE\nT-9.99\n^\n'
# Nothing was learned from a suggestion written under --batch.
run 0 --list instructions
[ ! -s "$tmp/out" ] || fail "a batch suggestion became an instruction: $(cat "$tmp/out")"

# At a terminal the form shows the suggestion; accepting it saves the instruction.
printf '%s\n' '!Type:Bank' 'D3/02/2024' 'T-12.00' 'PGROCERY OUTLET #1001 TACOMA WA' '^' \
    >"$tmp/third.qif"
printf '%s\n' save | "$cli" -o "$tmp/third-out.qif" "$tmp/third.qif" >"$tmp/out" 2>"$tmp/err" ||
    fail "the run failed: $(cat "$tmp/err")"
said "Category: Groceries (suggested)"
grep -qF "GROCERY OUTLET" "$tmp/err" || fail "no match text shown"
same "$tmp/third-out.qif" $'!Type:Bank\nD3/2/2024\nPGROCERY OUTLET #1001 TACOMA WA\nT-12.00\nLGroceries\n^\n'
run 0 --list instructions
grep -qF "GROCERY OUTLET" "$tmp/out" || fail "the instruction was not saved: $(cat "$tmp/out")"
echo "history suggestions: ok"
