#!/usr/bin/env bash
# An OFX file holding two accounts' statements (several STMTRS, or a bank account and a card)
# is never converted as one list: --account names the account id to convert, and only that
# statement's transactions are written; without it, or with an id the file does not hold, the
# file is refused and the accounts it holds are named.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

statement() { # ACCTID TRANSACTIONS...
    printf '<STMTTRNRS><STMTRS><BANKACCTFROM><ACCTID>%s<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST>\n' "$1"
    shift
    printf '%s\n' "$@" '</BANKTRANLIST></STMTRS></STMTTRNRS>'
}
{
    printf 'OFXHEADER:100\nDATA:OFXSGML\n\n<OFX><BANKMSGSRSV1>\n'
    statement 1001 '<STMTTRN><DTPOSTED>20240105<TRNAMT>-10.00<CHECKNUM>301<NAME>RENT</STMTTRN>' \
        '<STMTTRN><DTPOSTED>20240107<TRNAMT>250.00<NAME>PAY</STMTTRN>'
    statement 2002 '<STMTTRN><DTPOSTED>20240106<TRNAMT>-20.00<CHECKNUM>77<NAME>SAVINGS FEE</STMTTRN>'
    printf '</BANKMSGSRSV1></OFX>\n'
} >"$tmp/two.ofx"

run 0 --batch -o "$tmp/first.qif" --account 1001 "$tmp/two.ofx"
same "$tmp/first.qif" $'!Type:Bank\nD1/5/2024\nPRENT\nT-10.00\nN301\n^\nD1/7/2024\nPPAY\nT250.00\n^\n'
run 0 --batch -o "$tmp/second.qif" --account 2002 "$tmp/two.ofx"
same "$tmp/second.qif" $'!Type:Bank\nD1/6/2024\nPSAVINGS FEE\nT-20.00\nN77\n^\n'

run 1 --batch -o "$tmp/none.qif" "$tmp/two.ofx"
said_whole '== Invalid Input ==
File "two.ofx" contains transactions for multiple accounts; it cannot be processed.  Tavvel handles only one account at a time.\r\rThe accounts in it are 1001, 2002.  Choose one of them as the account of the run to convert its transactions alone.'
[ ! -e "$tmp/none.qif" ] || fail "a file of two accounts was converted without a choice"

run 2 --batch -o "$tmp/other.qif" --account 3003 "$tmp/two.ofx"
said 'tavvel-cli: --account: there is no Bank account called "3003"; the accounts are 1001, 2002.'
[ ! -e "$tmp/other.qif" ] || fail "an account the file does not hold was converted"
