#!/usr/bin/env bash
# QIF files through tavvel-cli --batch: a bank file with splits byte for byte, an input type
# that reverses signs, then every refusal of the intake and a corrupted date: each exits 1
# with its title and message on standard error, and leaves the output file as it was.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-42.17' 'N1041' 'PCORNER GROCERY' 'Mweekly' \
    'LFood' '^' 'D1/09/2024' 'T-63.45' 'PCITY POWER' 'SUtilities:Electric' '$-50.00' \
    'SUtilities:Water' 'Ewater' '$-13.45' '^' >"$tmp/bank.qif"
run 0 --batch -o "$tmp/bank-out.qif" "$tmp/bank.qif"
same "$tmp/bank-out.qif" $'!Type:Bank\nD1/2/2024\nPCORNER GROCERY\nMweekly\nT-42.17\nN1041\nLFood\n^\nD1/9/2024\nPCITY POWER\nT-63.45\nSUtilities:Electric\nE\n$-50.00\nSUtilities:Water\nEwater\n$-13.45\n^\n'
said '2 transactions output to file "bank-out.qif".'

run 0 --batch -o - --qif-type "Reverse Signs" --to 1/2/2024 --from 1/1/2024 "$tmp/bank.qif"
same "$tmp/out" $'!Type:Bank\nD1/2/2024\nPCORNER GROCERY\nMweekly\nT42.17\nN1041\nLFood\n^\n'

# refused NAME TITLE MESSAGE: the file $tmp/NAME is refused with the title and message, and
# the output file is left alone.
refused() {
    printf 'keep me\n' >"$tmp/kept.qif"
    run 1 --batch -o "$tmp/kept.qif" "$tmp/$1"
    said "== $2 ==" "$3"
    same "$tmp/kept.qif" $'keep me\n'
}

printf '%s\n' '!Account' 'NChecking' 'TBank' '^' '!Type:Bank' 'D1/2/2024' 'T-5.00' '^' \
    '!Account' 'NSavings' 'TBank' '^' '!Type:Bank' 'D1/3/2024' 'T-6.00' '^' >"$tmp/multi.qif"
refused multi.qif "Invalid Input" "File \"multi.qif\" contains transactions for multiple \
accounts; it cannot be processed.  Tavvel handles only one account at a time."

printf '%s\n' '!Type:Invst' 'D1/2/2024' 'NBuy' 'YACME' 'I10.00' 'Q5' 'T50.00' '^' >"$tmp/invest.qif"
refused invest.qif "Invalid Input" "File \"invest.qif\" contains INVESTMENT QIF, which is not \
supported by Tavvel. It cannot be processed."

printf '%s\n' '!Account' 'NChecking' 'TBank' '^' >"$tmp/no-type.qif"
refused no-type.qif "Invalid Input" \
    "File \"no-type.qif\" contains no transactions; it cannot be processed."

printf 'OFXHEADER:100\n\n<OFX><SIGNONMSGSRSV1><SONRS></SONRS></SIGNONMSGSRSV1></OFX>\n' >"$tmp/signon.ofx"
refused signon.ofx "Invalid Input" "File \"signon.ofx\" appears to contain QFX/OFX but does not \
represent Bank or Credit Card transactions; it cannot be processed."

printf '\n\n' >"$tmp/empty.qif"
refused empty.qif "No Transactions" "File \"empty.qif\" contains no QIF transactions to process."

printf 'Hello,\nthank you for banking with us.\n' >"$tmp/letter.txt"
refused letter.txt "Invalid Input" "The input is not in QIF format, and does not appear to \
contain a date.  It cannot be processed."

# Line 5 of the file: the reader counts from the line after the dropped "!Type:Bank".
printf '%s\n' '!Type:Bank' 'D1/2/2024' 'T-5.00' '^' 'Dsoon' 'T-1.00' '^' >"$tmp/bad-date.qif"
refused bad-date.qif "Invalid Input" "File \"bad-date.qif\" appears to contain corrupted QIF on \
line 5; it cannot be processed."
echo "convert qif: ok"
