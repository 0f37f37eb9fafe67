#!/usr/bin/env bash
# Instructions taught at the terminal last: an interactive run answers the new-instruction
# form with piped commands for two payees (one filed under two categories by splits), then a
# --batch run on the next statement, with the same preference folder, applies both without a
# question; a payee without an instruction goes out as read and is not learned.
source "$(dirname "$0")/lib/setup.bash" "$1"
data=$(dirname "$0")/data
first_start
"$cli" --batch --unset dontAddCategories </dev/null 2>/dev/null || fail "option not switched off"

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-54.20' 'PFRESH FOODS #4411' '^' \
    'D1/05/2024' 'T-100.00' 'PCITY POWER AND WATER' 'Mjanuary' '^' \
    'D1/09/2024' 'T-23.10' 'PFRESH FOODS #0087' '^' >"$tmp/january.qif"

# The second transaction's answer: a blank second split gets its category, and its amount
# is balanced by the first split at once (-100.00 = -60.00 + -40.00).
cat >"$tmp/answers" <<'ANSWERS'
match FRESH GROCER
sav
match FRESH FOODS
desc Fresh Foods
category Groceries
save
match CITY POWER
desc City Power & Water
splits on
split set 1 category Utilities:Electric
split set 2 category Utilities:Water
split set 2 amount -40.00
save
ANSWERS
"$cli" -o "$tmp/january-out.qif" "$tmp/january.qif" <"$tmp/answers" >"$tmp/out" 2>"$tmp/err" ||
    fail "interactive run failed: $(cat "$tmp/err")"
said "== Create New Instruction ==" "When a description starts with: FRESH FOODS #4411" \
    'The match text stays "FRESH FOODS #4411"' 'Unknown command "sav"' \
    "NEW Category Above" "    2) Utilities:Water |  | -40.00" "    1) Utilities:Electric |  | -60.00" \
    '3 transactions output to file "january-out.qif".'
# The third transaction matched what the first taught: two forms, not three.
[ "$(grep -c '== Create New Instruction ==' "$tmp/err")" -eq 2 ] || fail "a form too many"
same "$tmp/january-out.qif" $'!Type:Bank\nD1/2/2024\nPFresh Foods\nT-54.20\nLGroceries\n^\nD1/5/2024\nPCity Power & Water\nMjanuary\nT-100.00\nSUtilities:Electric\nE\n$-60.00\nSUtilities:Water\nE\n$-40.00\n^\nD1/9/2024\nPFresh Foods\nT-23.10\nLGroceries\n^\n'

printf '%s\n' '!Type:Bank' 'D2/01/2024' 'T-61.75' 'PFRESH FOODS #2020' '^' \
    'D2/05/2024' 'T-100.00' 'PCITY POWER AND WATER' 'Mfebruary' '^' \
    'D2/07/2024' 'T-12.00' 'PNEWSAGENT' 'Mpapers' 'LLeisure' '^' >"$tmp/february.qif"
run 0 --batch -o "$tmp/february-out.qif" "$tmp/february.qif"
cmp "$tmp/february-out.qif" "$data/instructions_applied.qif" ||
    fail "the batch output differs from $data/instructions_applied.qif"
grep -qF "Create New Instruction" "$tmp/err" && fail "--batch showed the new-instruction form"

run 0 --list instructions
grep -qF "FRESH FOODS" "$tmp/out" || fail "no instruction for FRESH FOODS: $(cat "$tmp/out")"
grep -qF "NEWSAGENT" "$tmp/out" && fail "--batch learned an instruction for NEWSAGENT"
# From the confirmation form, an instruction for one amount of a known payee: it is stored
# with the payee's instruction and applies to the same transaction at once.
"$cli" --batch --set confirmAllTransactions </dev/null 2>/dev/null || fail "option not set"
printf '%s\n' '!Type:Bank' 'D3/01/2024' 'T-54.20' 'PFRESH FOODS #4411' '^' >"$tmp/march.qif"
printf '%s\n' add-amount-instruction 'amount-desc Fresh Foods Box' 'amount-category Groceries:Box' \
    save ok | "$cli" -o "$tmp/march-out.qif" "$tmp/march.qif" >"$tmp/out" 2>"$tmp/err" ||
    fail "amount run failed: $(cat "$tmp/err")"
said "== Add Instruction For Amount ==" " For this amount (-54.20): on" "  Description: Fresh Foods Box"
same "$tmp/march-out.qif" $'!Type:Bank\nD3/1/2024\nPFresh Foods Box\nT-54.20\nLGroceries:Box\n^\n'
echo "instructions learned: ok"
