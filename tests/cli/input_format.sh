#!/usr/bin/env bash
# Choosing the input format of a text statement from the command line: --input-format NAME
# (any letter case) wins over the format the Match texts choose; an unknown name or a
# statement that is no text is wrong usage and changes nothing; a text that no stored format
# fits is refused with the ways to get one.
source "$(dirname "$0")/lib/setup.bash" "$1"
examples=$(cd "$(dirname "$0")/../../examples" && pwd)
first_start

printf '01/02/2024,,PAYROLL,100.00\n01/03/2024,,GROCER,-5.25\n' >"$tmp/no-heading.csv"
run 1 --batch -o "$tmp/refused.qif" "$tmp/no-heading.csv"
said "tavvel-cli: no stored input format fits this text, so it cannot be read; learn an input \
format for this statement, or import one from a .tvfm file (tavvel-cli FORMAT.tvfm), then convert \
it again (--input-format NAME chooses a stored one)."
[ ! -e "$tmp/refused.qif" ] || fail "a refused text wrote output"

run 0 --batch "$examples/csv-export.tvfm"
# A second format fits the example's heading with a shorter Match, so by Match alone it loses;
# it reads the payee column as the memo and the check column as the payee.
cat >"$tmp/memo.tvfm" <<'PLIST'
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
	<key>Name</key><string>Harbor Memo</string>
	<key>FormatType</key><string>Credit Card</string>
	<key>Match</key><string>Posting Date,Check</string>
	<key>Fields</key><string>CSV</string>
	<key>OneTransactionPerLine</key><true/>
	<key>DateDelimiter</key><string>/</string>
	<key>DateStart</key><string>
</string>
	<key>DateEnd</key><string>,</string>
	<key>Description</key><integer>1</integer>
	<key>Memo</key><integer>2</integer>
	<key>Credit</key><integer>3</integer>
</dict>
</plist>
PLIST
run 0 --batch "$tmp/memo.tvfm"

run 0 --batch -o - "$examples/csv-export.csv"
cmp -s "$tmp/out" "$examples/csv-export.qif" || fail "the longest Match did not choose"
run 0 --batch -o - --input-format "harbor MEMO" --from 1/4/2024 --to 1/4/2024 \
    "$examples/csv-export.csv"
same "$tmp/out" $'!Type:CCard\nD1/4/2024\nP1042\nMCITY WATER DEPT\nT-63.18\n^\n'

run 0 --batch -o - --input-format "Harbor Savings CSV" "$tmp/no-heading.csv"
same "$tmp/out" $'!Type:Bank\nD1/2/2024\nPPAYROLL\nT100.00\n^\nD1/3/2024\nPGROCER\nT-5.25\n^\n'

cp "$prefs" "$tmp/before"
run 2 --batch -o "$tmp/unknown.qif" --input-format Amex "$examples/csv-export.csv"
said 'tavvel-cli: --input-format: there is no input format called "Amex"; the input formats are Harbor Memo, Harbor Savings CSV.'
cmp -s "$prefs" "$tmp/before" || fail "an unknown input format changed the store"
[ ! -e "$tmp/unknown.qif" ] || fail "an unknown input format wrote output"
run 2 --batch -o - --input-format "Harbor Memo" "$examples/checking.ofx"
said "--input-format applies to text statements only"
cmp -s "$prefs" "$tmp/before" || fail "a misplaced --input-format changed the store"
echo "input format: ok"
