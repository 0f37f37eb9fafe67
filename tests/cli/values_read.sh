#!/usr/bin/env bash
# Values read right under --batch: a QIF file whose dates read either way is asked about on a
# day-first system, and the run says which order it took; on a month-first system, or when
# the file shows its order, nothing is asked. A file of many bad transactions prints the first
# ten and counts the rest.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
# The same statements are converted here again and again: none is to be left out as converted
# before.
run 0 --set keepDuplicates

printf '!Type:Bank\nD03/04/2024\nPFIRST\nT-1.00\n^\nD05/06/24\nPSECOND\nT-2.00\n^\n' >"$tmp/either.qif"
LC_ALL=en_GB.UTF-8 run 0 --batch -o "$tmp/gb.qif" "$tmp/either.qif"
said "== Month or Day First? ==" \
    'The dates of File "either.qif" can be read month first or day first' \
    "  1) Day First (3/4 is 3 April)" "  2) Month First (3/4 is March 4)" \
    "-> Day First (3/4 is 3 April)"
same "$tmp/gb.qif" $'!Type:Bank\nD4/3/2024\nPFIRST\nT-1.00\n^\nD6/5/2024\nPSECOND\nT-2.00\n^\n'

run 0 --batch -o "$tmp/us.qif" "$tmp/either.qif"
grep -qF "Month or Day First" "$tmp/err" && fail "a month-first system was asked"
same "$tmp/us.qif" $'!Type:Bank\nD3/4/2024\nPFIRST\nT-1.00\n^\nD5/6/2024\nPSECOND\nT-2.00\n^\n'

# The second record shows the order; the first is read the same way.
printf '!Type:Bank\nD03/04/2024\nPFIRST\nT-1.00\n^\nD22/12/2017\nPSECOND\nT-2.00\n^\n' >"$tmp/shown.qif"
LC_ALL=en_GB.UTF-8 run 0 --batch -o "$tmp/shown-out.qif" "$tmp/shown.qif"
grep -qF "Month or Day First" "$tmp/err" && fail "a file that shows its order was asked about"
same "$tmp/shown-out.qif" $'!Type:Bank\nD4/3/2024\nPFIRST\nT-1.00\n^\nD12/22/2017\nPSECOND\nT-2.00\n^\n'

{
    printf 'OFXHEADER:100\nDATA:OFXSGML\n\n<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKTRANLIST>\n'
    printf '<STMTTRN><DTPOSTED>20240101<TRNAMT>1.00<NAME>GOOD</STMTTRN>\n'
    for i in $(seq 1 25); do printf '<STMTTRN><DTPOSTED>20240102<TRNAMT>N/A%s<NAME>BAD</STMTTRN>\n' "$i"; done
    printf '</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\n'
} >"$tmp/bad.ofx"
run 0 --batch -o "$tmp/bad.qif" "$tmp/bad.ofx"
[ "$(grep -c '^== Error ==$' "$tmp/err")" -eq 10 ] || fail "not ten error messages: $(cat "$tmp/err")"
said "<TRNAMT>N/A10<NAME>BAD" "tavvel-cli: 25 error records skipped; the first 10 are shown above."
grep -qF "N/A11" "$tmp/err" && fail "an eleventh error record was printed"
same "$tmp/bad.qif" $'!Type:Bank\nD1/1/2024\nPGOOD\nT1.00\n^\n'
