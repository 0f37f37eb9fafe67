#!/usr/bin/env bash
# What the program says when it refuses a file or cannot write, and the questions it asks on
# the way, written out whole: an output place that is missing or no file, a continuation file
# that is none or holds no stopped run, QIF lists it will not import, OFX transactions that lack
# an amount or a type, an investment OFX none of whose transactions it can read, and dates that
# read either way on a day-first system.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

printf '%s\n' '!Type:Bank' 'D3/4/2024' 'T-8.50' 'PSHOP' '^' 'D5/6/2024' 'T-1.00' 'PBAKERY' '^' \
    >"$tmp/bank.qif"
run 1 --batch -o "$tmp/missing/out.qif" --all "$tmp/bank.qif"
said "out.qif could not be written, so nothing was saved.  Check that its folder exists and that you may write to it, then process the transactions again."
run 1 --batch -o "$tmp" --all "$tmp/bank.qif"
said "\"$tmp\" is a folder, a device or a pipe, not a file, so the output cannot be written to it.  Choose another output file, then process the transactions again."
[ ! -e "$tmp/missing" ] || fail "a refused output place was created"

LC_TIME=en_GB.UTF-8 run 0 --batch -o "$tmp/out.qif" --all "$tmp/bank.qif"
said "== Month or Day First? ==" \
    'The dates of File "bank.qif" can be read month first or day first (3/4/2024 is March 4 or 3 April), and nothing in the file tells which. How does it write them?'

echo junk >"$tmp/junk.tvcn"
run 1 --batch "$tmp/junk.tvcn"
said '== Invalid Continuation File ==' \
    'Continuation file "junk.tvcn" cannot be read as a continuation file; it cannot be processed.  Open the .tvcn file that Tavvel saved when you chose to finish later.'
printf '%s\n' '<?xml version="1.0" encoding="UTF-8"?>' '<plist version="1.0"><dict/></plist>' \
    >"$tmp/empty.tvcn"
run 1 --batch "$tmp/empty.tvcn"
said 'Continuation file "empty.tvcn" is damaged: it does not hold the run that was stopped, so it cannot be resumed.'

printf '%s\n' '!Type:Security' 'NAcme' 'SACM' 'TStock' '^' >"$tmp/securities.qif"
run 1 --batch "$tmp/securities.qif"
said '== QIF List Import ==' \
    'File "securities.qif" contains a list of SECURITIES.  Do you want Tavvel to replace the securities it uses with this list?'
printf '%s\n' '!Type:Prices' '"ACM",12.5,"1/2/24"' '^' >"$tmp/prices.qif"
# Lists only, with no register after them: nothing to convert.
run 1 --batch "$tmp/prices.qif"
said 'File "prices.qif" contains a list of securities prices which cannot be imported.  This might be because of a bug in Quicken 2006 which, in some releases, swapped the "Securities" and "Security Prices" checkboxes in the Export dialog.  So, if you are running Quicken 2006, try exporting the Security Prices and see if Tavvel accepts this file as Securities.'
printf '%s\n' '!Option:AutoSwitch' '!Account' 'NChecking' 'XX' '^' >"$tmp/corrupted.qif"
run 1 --batch "$tmp/corrupted.qif"
said 'File "corrupted.qif" appears to be an unsupported or corrupted QIF export; it cannot be imported.'

printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><ACCTID>1\n<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240131<NAME>SHOP</STMTTRN>\n<STMTTRN><DTPOSTED>20240201<TRNAMT>100.00<NAME>PAY</STMTTRN>\n</BANKMSGSRSV1></OFX>\n' \
    >"$tmp/bank.ofx"
run 0 --batch -o "$tmp/ofx.qif" --all "$tmp/bank.ofx"
said 'The following OFX transaction has no amount; it cannot be processed: <TRNTYPE>DEBIT<DTPOSTED>20240131<NAME>SHOP</STMTTRN>'
same "$tmp/ofx.qif" $'!Type:Bank\nD2/1/2024\nPPAY\nT100.00\n^\n'
run 0 --set useOFXTRNTYPE
run 0 --batch -o "$tmp/ofx.qif" --all "$tmp/bank.ofx"
said 'The following OFX transaction has no type; it cannot be processed: <DTPOSTED>20240201<TRNAMT>100.00<NAME>PAY</STMTTRN>'

printf 'OFXHEADER:100\n\n<OFX><INVSTMTMSGSRSV1><INVSTMTRS><INVTRANLIST><BUYSTOCK></BUYSTOCK></INVTRANLIST></INVSTMTRS></INVSTMTMSGSRSV1></OFX>\n' \
    >"$tmp/invest.ofx"
run 1 --batch -o "$tmp/invest.qif" --all "$tmp/invest.ofx"
said '== Invalid OFX ==' 'This investment OFX cannot be understood.'
[ ! -e "$tmp/invest.qif" ] || fail "an unreadable investment OFX wrote a file"
