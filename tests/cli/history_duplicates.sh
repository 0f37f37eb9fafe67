#!/usr/bin/env bash
# The conversion history under --batch: overlapping statements (OFX with FITIDs, QIF and CSV
# without) give each transaction once, equal transactions within one statement stay, the same
# statement again is converted again, --keep-duplicates and the keepDuplicates option write
# everything, a run whose output was not written is not remembered,
# --history lists and --forget-history clears, and a damaged or unusable history is reported
# while the conversion completes.
source "$(dirname "$0")/lib/setup.bash" "$1"
examples=$(cd "$(dirname "$0")/../../examples" && pwd)
history=$HOME/.local/share/Tavvel/history.sqlite
first_start

ofx() {
    printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKACCTFROM><ACCTID>9<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST>\n'
    printf '%s\n' "$@"
    printf '</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\n'
}
tx() { echo "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>$1<TRNAMT>$2<FITID>$3<NAME>$4</STMTTRN>"; }

# OFX: the bank renamed a payee between downloads, but its id says it is the same one; a new
# id with equal fields is a new transaction.
ofx "$(tx 20240102 -5.00 A1 COFFEE)" "$(tx 20240103 -9.00 A2 SHOP)" >"$tmp/nov.ofx"
ofx "$(tx 20240103 -9.00 A2 'SHOP #12')" "$(tx 20240103 -9.00 A3 SHOP)" \
    "$(tx 20240104 -7.00 A4 BAKERY)" >"$tmp/dec.ofx"
run 0 --batch -o "$tmp/nov.qif" "$tmp/nov.ofx"
run 0 --batch -o "$tmp/dec.qif" "$tmp/dec.ofx"
same "$tmp/dec.qif" $'!Type:Bank\nD1/3/2024\nPSHOP\nT-9.00\n^\nD1/4/2024\nPBAKERY\nT-7.00\n^\n'
said_whole '2 transactions output to file "dec.qif".\r1 duplicate transaction left out.'
said "== Already converted on " "1/3/2024  -9.00  SHOP #12" "-> Skip Transaction"

# QIF: two equal coffees of one day are two transactions; a later statement with three of
# them holds one new one.
printf '%s\n' '!Type:CCard' 'D2/02/2024' 'T-3.50' 'PCAFE' '^' 'D2/02/2024' 'T-3.50' 'PCAFE' '^' \
    >"$tmp/one.qif"
printf '%s\n' '!Type:CCard' 'D2/02/2024' 'T-3.50' 'PCAFE' '^' 'D2/02/2024' 'T-3.50' 'PCAFE' '^' \
    'D2/02/2024' 'T-3.50' 'PCAFE' '^' 'D2/03/2024' 'T-8.00' 'PLUNCH' '^' >"$tmp/two.qif"
run 0 --batch -o "$tmp/one-out.qif" "$tmp/one.qif"
same "$tmp/one-out.qif" $'!Type:CCard\nD2/2/2024\nPCAFE\nT-3.50\n^\nD2/2/2024\nPCAFE\nT-3.50\n^\n'
run 0 --batch -o "$tmp/two-out.qif" "$tmp/two.qif"
same "$tmp/two-out.qif" $'!Type:CCard\nD2/2/2024\nPCAFE\nT-3.50\n^\nD2/3/2024\nPLUNCH\nT-8.00\n^\n'
said_whole '2 transactions output to file "two-out.qif".\r2 duplicate transactions left out.'

# The same statement again: asked once, and a batch run converts it again.
run 0 --batch -o "$tmp/again.qif" "$tmp/one.qif"
said "== Converted Before ==" "-> Convert Again"
said_whole "All 2 transactions were converted before (on "
same "$tmp/again.qif" "$(cat "$tmp/one-out.qif")"$'\n'
grep -q "Already converted" "$tmp/err" && fail "a statement converted again asked per transaction"

# CSV through an input format: the overlap with the earlier statement is left out.
run 0 --batch "$examples/csv-export.tvfm"
head -4 "$examples/csv-export.csv" >"$tmp/jan1.csv"
(head -1 "$examples/csv-export.csv" && sed -n '3,6p' "$examples/csv-export.csv") >"$tmp/jan2.csv"
run 0 --batch -o "$tmp/jan.qif" "$tmp/jan1.csv"
run 0 --batch -o "$tmp/jan2.qif" "$tmp/jan2.csv"
same "$tmp/jan2.qif" $'!Type:Bank\nD1/15/2024\nPTRANSFER TO SAVINGS\nT-500.00\n^\nD1/31/2024\nPINTEREST PAID\nT0.42\n^\n'
said_whole '2 transactions output to file "jan2.qif".\r2 duplicate transactions left out.'

# --keep-duplicates and the option write the overlap; neither is remembered as a setting.
run 0 --batch --keep-duplicates -o "$tmp/kept.qif" "$tmp/two.qif"
[ "$(grep -c '^PCAFE' "$tmp/kept.qif")" -eq 3 ] || fail "--keep-duplicates left a coffee out"
run 0 --set keepDuplicates
run 0 --batch -o "$tmp/kept2.qif" "$tmp/dec.ofx"
same "$tmp/kept2.qif" $'!Type:Bank\nD1/3/2024\nPSHOP #12\nT-9.00\n^\nD1/3/2024\nPSHOP\nT-9.00\n^\nD1/4/2024\nPBAKERY\nT-7.00\n^\n'
run 0 --unset keepDuplicates

# A run whose output file cannot be written is not remembered.
printf '%s\n' '!Type:Bank' 'D3/01/2024' 'T-1.00' 'PNEVER WRITTEN' '^' >"$tmp/lost.qif"
run 1 --batch -o "$tmp/no/such/folder/lost.qif" "$tmp/lost.qif"
run 0 --history ""
grep -q "NEVER WRITTEN" "$tmp/out" && fail "a run that wrote nothing was remembered"
# Each account has its own history: the OFX statements are the account 9's.
grep -q "BAKERY" "$tmp/out" && fail "another account's transactions were listed"
run 0 --history 9
grep -qxF 'Transactions converted for "9" (date, amount, number, description, category, converted on):' \
    "$tmp/out" || fail "--history has no heading: $(cat "$tmp/out")"
grep -qF $'1/4/2024\t-7.00\t\tBAKERY\t\t' "$tmp/out" || fail "--history lacks BAKERY: $(cat "$tmp/out")"
listed=$(($(wc -l <"$tmp/out") - 1))
run 0 --forget-history 9
same "$tmp/out" "$listed transactions converted for \"9\" forgotten."$'\n'
run 0 --history 9
same "$tmp/out" $'No transactions were converted for "9" yet.\n'
run 0 --batch -o "$tmp/dec-again.qif" "$tmp/dec.ofx"
[ "$(grep -c '^D' "$tmp/dec-again.qif")" -eq 3 ] || fail "a forgotten history still left out"

# A damaged history is kept aside and started afresh; one that cannot be made at all is
# reported; either way the statement is converted.
head -c 3000 /dev/urandom >"$history"
rm -f "$history-wal" "$history-shm"
run 0 --batch -o "$tmp/d1.qif" "$tmp/one.qif"
said "== Conversion History ==" "could not be read, so it was kept aside as"
same "$tmp/d1.qif" "$(cat "$tmp/one-out.qif")"$'\n'
ls "$history".corrupt-* >/dev/null || fail "the damaged history was not kept aside"
export XDG_DATA_HOME=$tmp/blocked
echo "a file, not a folder" >"$XDG_DATA_HOME"
run 0 --batch -o "$tmp/d2.qif" "$tmp/one.qif"
said "== Conversion History ==" "cannot be opened for writing.  The conversion goes ahead"
same "$tmp/d2.qif" "$(cat "$tmp/one-out.qif")"$'\n'
run 1 --history ""
said "tavvel-cli: the conversion history could not be opened; nothing was listed or forgotten."
echo "history duplicates: ok"
