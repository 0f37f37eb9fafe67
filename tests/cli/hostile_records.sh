#!/usr/bin/env bash
# Records built to exhaust a reader, through tavvel-cli --batch: one QIF transaction of 100,000
# splits converts whole, every split kept and the total unchanged; an OFX transaction under
# 10,000 levels of unknown SGML tags converts like a plain one, with no recursion to run out of.
# The bigger sizes (a 2 GB statement, a 100 MB line, a 500 MB preference file) are in
# bench/hostile_inputs.sh.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

awk 'BEGIN { print "!Type:Bank"; print "D1/02/2024"; print "T-100000.00"; print "PSHOP"
    for (i = 0; i < 100000; i++) { print "SFood"; print "$-1.00" }; print "^" }' >"$tmp/splits.qif"
run 0 --batch -o "$tmp/splits-out.qif" --all "$tmp/splits.qif"
said "1 transaction output to file \"splits-out.qif\"."
[ "$(head -n 4 "$tmp/splits-out.qif")" = $'!Type:Bank\nD1/2/2024\nPSHOP\nT-100000.00' ] ||
    fail "the transaction's own lines changed: $(head -n 4 "$tmp/splits-out.qif")"
[ "$(grep -c '^SFood$' "$tmp/splits-out.qif")" -eq 100000 ] || fail "splits lost"
[ "$(grep -c '^\$-1\.00$' "$tmp/splits-out.qif")" -eq 100000 ] || fail "split amounts changed"
[ "$(tail -n 1 "$tmp/splits-out.qif")" = "^" ] || fail "the record is not closed"

{
    printf 'OFXHEADER:100\nDATA:OFXSGML\n\n<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKTRANLIST>'
    awk 'BEGIN { for (i = 0; i < 10000; i++) printf "<A>" }'
    printf '<STMTTRN><DTPOSTED>20240131<TRNAMT>-12.00<NAME>SHOP</STMTTRN>'
    awk 'BEGIN { for (i = 0; i < 10000; i++) printf "</A>" }'
    printf '</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\n'
} >"$tmp/nested.ofx"
run 0 --batch -o - --all "$tmp/nested.ofx"
same "$tmp/out" $'!Type:Bank\nD1/31/2024\nPSHOP\nT-12.00\n^\n'
echo "hostile records: ok"
