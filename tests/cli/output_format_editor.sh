#!/usr/bin/env bash
# A delimited layout defined by typed commands from a pipe, then a statement converted with
# it; the layout edited again (renamed, credit and debit columns), shared through a .tvof file
# and imported under a free name; "QIF" refused; a cancelled edit changes nothing.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-54.20' 'PFRESH, FOODS' 'LGroceries' '^' \
    'D1/05/2024' 'T1,000.00' 'PSALARY' 'Mjanuary' 'LIncome' '^' >"$tmp/january.qif"

printf '%s\n' 'separator Semicolon' 'columns Date Description Amount Category' 'move Category 1' \
    'dates %d.%m.%Y' 'bogus' save |
    "$cli" --edit-output-format Ledger >"$tmp/out" 2>"$tmp/err" || fail "editor failed: $(cat "$tmp/err")"
said "== Define Format ==" "Choose one of Comma|Tab." 'Unknown command "bogus"' \
    "    1 [x] Category" "    5 [ ] Number" "    Food:Groceries,15.1.2024,CITY MARKET,-54.20" \
    "  save                               Create Output Format" \
    'The output format "Ledger" is saved.'
run 0 --list output-formats
same "$tmp/out" $'Ledger\tBank\tComma\nQIF\n'

run 0 --batch --output-format Ledger -o "$tmp/january.csv" "$tmp/january.qif"
same "$tmp/january.csv" $'Groceries,2.1.2024,"FRESH, FOODS",-54.20\nIncome,5.1.2024,SALARY,"1,000.00"\n'

# A card layout that writes every split as amount, category and memo.
printf '%s\n' 'type "Credit Card"' 'columns Date Amount Splits' 'splits on' save |
    "$cli" --edit-output-format Cards >/dev/null 2>"$tmp/err"
printf '%s\n' '!Type:CCard' 'D1/02/2024' 'T-54.20' 'PCORNER SHOP' 'SGroceries' 'Efood, fresh' '$-30.00' \
    'SHousehold' 'Esoap' '$-24.20' '^' >"$tmp/card.qif"
run 0 --batch --output-format Cards -o "$tmp/card.csv" "$tmp/card.qif"
same "$tmp/card.csv" $'1/2/2024,-54.20,-30.00,Groceries,"food, fresh",-24.20,Household,soap\n'
printf '%s\n' delete | "$cli" --edit-output-format Cards >/dev/null 2>&1

# Cancelled: nothing changes, however much was typed.
cp "$prefs" "$tmp/before.prefs"
printf '%s\n' 'name Other' 'hide Date' help cancel | "$cli" --edit-output-format ledger >/dev/null 2>"$tmp/err"
said "== Edit Output Format: Ledger ==" "  save                               Accept Changes"
cmp -s "$prefs" "$tmp/before.prefs" || fail "a cancelled edit changed the preference file"
# End of input is a Cancel too.
printf '%s\n' 'name Other' | "$cli" --edit-output-format Ledger >/dev/null 2>&1
cmp -s "$prefs" "$tmp/before.prefs" || fail "an unfinished edit changed the preference file"

printf '%s\n' 'name Books' 'separator Tab' 'amount Credit/Debit' 'dates' 'show Memo' save |
    "$cli" --edit-output-format Ledger >/dev/null 2>"$tmp/err"
said 'The output format "Books" is saved.'
run 0 --batch --output-format Books -o "$tmp/january.txt" "$tmp/january.qif"
same "$tmp/january.txt" $'Groceries\t1/2/2024\tFRESH, FOODS\t\t-54.20\t\nIncome\t1/5/2024\tSALARY\t1,000.00\t\tjanuary\n'

run 0 --export-output-format books "$tmp/books.tvof"
said "Output Format Exported" "The output format \"books\" was saved in \"$tmp/books.tvof\"."
run 0 "$tmp/books.tvof"
said "Output Format Imported" 'The output format "Books2" was added to your output formats.'
run 0 --batch --output-format Books2 -o "$tmp/again.txt" "$tmp/january.qif"
cmp "$tmp/again.txt" "$tmp/january.txt" || fail "the imported layout writes otherwise"
run 1 --export-output-format Nothing "$tmp/none.tvof"
said 'There is no output format named "Nothing".'
cp "$tmp/january.qif" "$tmp/bad.tvof"
run 1 "$tmp/bad.tvof"
said "The file \"$tmp/bad.tvof\" does not hold an output format."

run 1 --edit-output-format QIF
said "The QIF output format is built in and cannot be changed or deleted."
printf '%s\n' delete | "$cli" --edit-output-format Books2 >/dev/null 2>"$tmp/err"
said "Delete Output Format" 'Delete the output format "Books2"?  This cannot be undone.' 'The output format "Books2" is deleted.'
run 0 --list output-formats
same "$tmp/out" $'Books\tBank\tTab\nQIF\n'
