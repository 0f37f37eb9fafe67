#!/usr/bin/env bash
# An input type changes only the run, and the kind of input, it was chosen for: a run stopped
# with "finish later" and resumed writes the signs and swapped fields it was started with, for
# QIF and OFX input, and a QIF run that reversed signs leaves a later OFX run's amounts alone.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
"$cli" --batch --set confirmAllTransactions </dev/null 2>/dev/null || fail "option not set"
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-1.00' 'PONE' 'Mm1' '^' 'D1/03/2024' 'T-2.00' 'PTWO' \
    'Mm2' '^' 'D1/04/2024' 'T3.00' 'PTHREE' 'Mm3' '^' >"$tmp/bank.qif"
printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><STMTTRN><DTPOSTED>20240131<TRNAMT>-20.00<NAME>GROCER<MEMO>weekly</STMTTRN><STMTTRN><DTPOSTED>20240201<TRNAMT>-5.00<NAME>CAFE<MEMO>latte</STMTTRN></BANKMSGSRSV1></OFX>\n' \
    >"$tmp/bank.ofx"
mkdir "$tmp/work"

# resumed INPUT TYPE-OPTION TYPE EXPECTED: one transaction confirmed, then finish later; the
# continuation resumed under --batch writes EXPECTED.
resumed() {
    local stem=${1%.*}
    (cd "$tmp/work" && printf '%s\n' ok cancel 2 | "$cli" -o "$tmp/unused" "$2" "$3" "$tmp/$1" \
        >/dev/null 2>"$tmp/err") && fail "the run was not stopped: $(cat "$tmp/err")"
    (cd "$tmp/work" && "$cli" --batch -o "$tmp/resumed.qif" "$stem.tvcn" </dev/null \
        >/dev/null 2>"$tmp/err") || fail "the resume failed: $(cat "$tmp/err")"
    same "$tmp/resumed.qif" "$4"
}

resumed bank.qif --qif-type "Swap and Reverse Signs" $'!Type:Bank\nD1/2/2024\nPm1\nMONE\nT1.00\n^
D1/3/2024\nPm2\nMTWO\nT2.00\n^\nD1/4/2024\nPm3\nMTHREE\nT-3.00\n^\n'
resumed bank.ofx --ofx-type "Swap Description and Memo" $'!Type:Bank\nD1/31/2024\nPweekly
MGROCER\nT-20.00\n^\nD2/1/2024\nPlatte\nMCAFE\nT-5.00\n^\n'

# The last QIF run reversed signs and swapped; this OFX run asked for neither.
run 0 --batch -o - "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD1/31/2024\nPGROCER\nMweekly\nT-20.00\n^\nD2/1/2024\nPCAFE
Mlatte\nT-5.00\n^\n'
echo "input_types: ok"
