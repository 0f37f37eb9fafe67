#!/usr/bin/env bash
# Instructions edited at the terminal: two payees learned in an interactive run; the list
# searched and sorted; one instruction given a new description, a new category and a
# treatment for one amount; the next --batch run applies the change; a refused transfer
# category and a cancelled edit store nothing; a deleted instruction stops applying.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
"$cli" --batch --unset dontAddCategories </dev/null 2>/dev/null || fail "option not switched off"

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-54.20' 'PFRESH FOODS #4411' '^' \
    'D1/05/2024' 'T-12.50' 'PFRESH FOODS #0087' '^' \
    'D1/09/2024' 'T1,000.00' 'PACME PAYROLL' '^' >"$tmp/january.qif"
printf '%s\n' 'match FRESH FOODS' 'category Groceries' save 'match ACME' 'category Salary' save |
    "$cli" -o "$tmp/first.qif" "$tmp/january.qif" >/dev/null 2>"$tmp/err" ||
    fail "learning run failed: $(cat "$tmp/err")"

printf '%s\n' 'sort category' 'search fresh' 'edit 1' 'match FRESH FOODS #44' 'match ACME' \
    'category [Savings]' save 'match FRESH' 'desc Fresh Foods' 'category Food:Fresh' \
    'amount -12.50' save 'amount-desc Fresh Foods Club' 'amount-category Fees' save done |
    "$cli" --edit-instructions >/dev/null 2>"$tmp/err" || fail "editor failed: $(cat "$tmp/err")"
said "Instructions: 2 shown, sorted by match" "  1  ACME (description) -> Salary" \
    "Instructions: 2 shown, sorted by category" "  2  FRESH FOODS (description) -> Groceries" \
    'Instructions: 1 shown, sorted by category, holding "fresh"' "== Edit Instruction ==" \
    "  When a description starts with: FRESH FOODS" \
    "(You can edit the string above, but be careful to make sure it contines to match the QIF transactions you intend it to match.)" \
    "WARNING: The string above does not match the original string; it may not match QIF transactions as intended." \
    "WARNING: An instruction with the above match already exists.  If you save changes it will be replaced." \
    'Bad Category "[Savings]"' \
    "The instruction cannot be saved until its match, new description and amount fields are filled in." \
    " For the amount -12.50:" "      NEW Category Above" \
    "  1  FRESH (description) -> Food:Fresh  [1 amount]"

run 0 --list instructions
same "$tmp/out" $'ACME\tdescription\tSalary\nFRESH\tdescription\tFood:Fresh\n'
run 0 --batch -o "$tmp/second.qif" "$tmp/january.qif"
same "$tmp/second.qif" $'!Type:Bank\nD1/2/2024\nPFresh Foods\nT-54.20\nLFood:Fresh\n^\nD1/5/2024\nPFresh Foods Club\nT-12.50\nLFees\n^\nD1/9/2024\nPACME PAYROLL\nT1,000.00\nLSalary\n^\n'

# Cancelled after a change, then a deletion declined and one confirmed.
cp "$prefs" "$tmp/before.prefs"
printf '%s\n' 'edit 1' 'category Other' cancel 'delete 1' 2 done |
    "$cli" --edit-instructions >/dev/null 2>"$tmp/err"
cmp -s "$prefs" "$tmp/before.prefs" || fail "a cancelled edit changed the preference file"
said 'Delete the instruction for "ACME"?  This cannot be undone.'
printf '%s\n' 'edit 1' delete 1 done | "$cli" --edit-instructions >/dev/null 2>"$tmp/err"
said "== Delete Instruction =="
run 0 --list instructions
same "$tmp/out" $'FRESH\tdescription\tFood:Fresh\n'
run 0 --batch -o "$tmp/third.qif" "$tmp/january.qif"
same "$tmp/third.qif" $'!Type:Bank\nD1/2/2024\nPFresh Foods\nT-54.20\nLFood:Fresh\n^\nD1/5/2024\nPFresh Foods Club\nT-12.50\nLFees\n^\nD1/9/2024\nPACME PAYROLL\nT1,000.00\n^\n'
