#!/usr/bin/env bash
# OFX statements through tavvel-cli --batch: the output file byte for byte, standard output
# with -o -, the suggested name without -o, inclusive range ends, a fixed date and number,
# the swap input type, error records skipped and counted (or a run stopped at one at a
# terminal), a file that cannot be written, a card statement in XML form, and a run with
# nothing to output.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
# The same statements are converted here again and again: none is to be left out as converted
# before.
run 0 --set keepDuplicates

cat >"$tmp/bank.ofx" <<'OFX'
OFXHEADER:100
DATA:OFXSGML

<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKACCTFROM><ACCTID>123456789<ACCTTYPE>CHECKING</BANKACCTFROM>
<BANKTRANLIST>
<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240130<TRNAMT>-1.00<FITID>0<NAME>BEFORE RANGE</STMTTRN>
<STMTTRN><TRNTYPE>CHECK<DTPOSTED>20240131120000[-5:EST]<TRNAMT>-12.00<FITID>1<CHECKNUM>1041<NAME>CORNER GROCERY<MEMO>weekly</STMTTRN>
<STMTTRN><TRNTYPE>CREDIT<DTPOSTED>20240201<TRNAMT>1850.00<FITID>2<REFNUM>R77<NAME>PAYROLL</STMTTRN>
<STMTTRN><TRNTYPE>CREDIT<TRNAMT>5.00<FITID>3<NAME>NO DATE HERE</STMTTRN>
<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240202<TRNAMT>-3.00<FITID>4<NAME>AFTER RANGE</STMTTRN>
</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>
OFX

all=$'!Type:Bank\nD1/30/2024\nPBEFORE RANGE\nT-1.00\n^\nD1/31/2024\nPCORNER GROCERY\nMweekly\nT-12.00\nN1041\n^\nD2/1/2024\nPPAYROLL\nT1850.00\nNR77\n^\nD2/2/2024\nPAFTER RANGE\nT-3.00\n^\n'
run 0 --batch -o "$tmp/all.qif" "$tmp/bank.ofx"
same "$tmp/all.qif" "$all"
said "== Finished Processing Transactions ==" '4 transactions output to file "all.qif".' \
    "The following OFX transaction does not contain a date; it cannot be processed: " \
    "-> Skip Transaction" "tavvel-cli: 1 error record skipped."
[ ! -s "$tmp/out" ] || fail "a run with -o FILE wrote to standard output"

mkdir "$tmp/scratch"
TMPDIR=$tmp/scratch run 0 --batch -o - "$tmp/bank.ofx"
cmp -s "$tmp/out" "$tmp/all.qif" || fail "-o - printed other bytes than the file holds"
[ -z "$(ls -A "$tmp/scratch")" ] || fail "-o - left files behind: $(ls -A "$tmp/scratch")"
grep -qF "<string>$tmp/scratch" "$prefs" && fail "-o - remembered its passing folder"

# At a terminal the error record is a question: Cancel ends the run with what came before.
printf '2\n' | "$cli" -o "$tmp/stopped.qif" "$tmp/bank.ofx" >"$tmp/out" 2>"$tmp/err"
said "  2) Cancel" "Choose 1-2 [1]: " '3 transactions output to file "stopped.qif".'
same "$tmp/stopped.qif" "${all%%D2/2/2024*}"
grep -qF "skipped" "$tmp/err" && fail "a cancelled error record was counted as skipped"

run 1 --batch -o "$tmp/no-such-folder/out.qif" "$tmp/bank.ofx"
said "== Output File Not Written ==" "out.qif could not be written, so nothing was saved."
[ ! -e "$tmp/no-such-folder" ] || fail "a folder was made for the output"

mkdir "$tmp/here"
(cd "$tmp/here" && run 0 --batch "$tmp/bank.ofx")
suggested=("$tmp/here"/QIF\ Import\ *-*-*.qif)
[ -f "${suggested[0]}" ] || fail "no file with the suggested name: $(ls "$tmp/here")"
cmp -s "${suggested[0]}" "$tmp/all.qif" || fail "the suggested file differs"

range=$'!Type:Bank\nD1/31/2024\nPCORNER GROCERY\nMweekly\nT-12.00\nN1041\n^\nD2/1/2024\nPPAYROLL\nT1850.00\nNR77\n^\n'
run 0 --batch -o "$tmp/range.qif" --from 1/31/24 --to 2/1/2024 "$tmp/bank.ofx"
same "$tmp/range.qif" "$range"

fixed=$'!Type:Bank\nD3/4/2024\nPCORNER GROCERY\nMweekly\nT-12.00\nN500\n^\nD3/4/2024\nPPAYROLL\nT1850.00\nN500\n^\n'
run 0 --batch -o "$tmp/fixed.qif" --from 1/31/2024 --to 2/1/2024 --same-date 03/04/24 \
    --same-number 500 "$tmp/bank.ofx"
same "$tmp/fixed.qif" "$fixed"

run 0 --batch -o - --from 1/31/2024 --to 1/31/2024 --ofx-type "swap description and memo" \
    "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD1/31/2024\nPweekly\nMCORNER GROCERY\nT-12.00\nN1041\n^\n'

# The statement is from long ago, so last month holds none of it.
run 0 --batch -o "$tmp/none.qif" --last-month "$tmp/bank.ofx"
said "No transactions output."
[ ! -e "$tmp/none.qif" ] || fail "a file was written with nothing to output"

# From a day to today: the dated transactions from 2/1/2024 on.
run 0 --batch -o - --from 2/1/2024 "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD2/1/2024\nPPAYROLL\nT1850.00\nNR77\n^\nD2/2/2024\nPAFTER RANGE\nT-3.00\n^\n'

cat >"$tmp/card.qfx" <<'OFX'
OFXHEADER:100
DATA:OFXSGML

<?xml version="1.0"?>
<OFX><CREDITCARDMSGSRSV1><CCSTMTTRNRS><CCSTMTRS><CCACCTFROM><ACCTID>4111000011112222</ACCTID></CCACCTFROM>
<BANKTRANLIST>
<STMTTRN><TRNTYPE>DEBIT</TRNTYPE><DTPOSTED>20240305</DTPOSTED><TRNAMT>-25.50</TRNAMT><FITID>9</FITID><CHECKNUM>12</CHECKNUM><REFNUM>X1</REFNUM><NAME>BOOK SHOP</NAME><MEMO>gift</MEMO></STMTTRN>
<STMTTRN><TRNTYPE>CREDIT</TRNTYPE><DTPOSTED>20240306</DTPOSTED><TRNAMT>100.00</TRNAMT><FITID>10</FITID><CHECKNUM>13</CHECKNUM><NAME>PAYMENT THANK YOU</NAME></STMTTRN>
</BANKTRANLIST></CCSTMTRS></CCSTMTTRNRS></CREDITCARDMSGSRSV1></OFX>
OFX
run 0 --batch -o - "$tmp/card.qfx"
same "$tmp/out" $'!Type:CCard\nD3/5/2024\nPBOOK SHOP\nMgift\nT-25.50\nNX1\n^\nD3/6/2024\nPPAYMENT THANK YOU\nT100.00\n^\n'
grep -qF "error record" "$tmp/err" && fail "a clean statement reported error records"
echo "convert ofx: ok"
