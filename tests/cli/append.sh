#!/usr/bin/env bash
# With the option append, QIF output opens with an account block for the chosen account, and
# --append keeps the file's earlier text in front; without --append the file is replaced. The
# account must be a known one of the statement's kind. The option runAutomatically runs with
# the last run's settings, so run options are refused while it is on. A settings change keeps
# the last output file unless it switches append on.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

# Appending needs the accounts: with none known the run stops at once and says how to get them.
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-8.50' 'PSHOP' '^' >"$tmp/bank.qif"
run 0 --set append
run 1 --batch -o "$tmp/none.qif" "$tmp/bank.qif"
said "== No Accounts ==" "You specified in the preferences that you wanted the option to append \
your transactions to your previous file. To do this Tavvel must know the account names(s) that \
will be meaningful to your financial software. If possible, you should export your Accounts \
from your financial software into a QIF file, and then open the resulting file with Tavvel \
before proceeding. Alternatively you can use the Edit->Accounts function to enter account \
names and types yourself."
[ ! -e "$tmp/none.qif" ] || fail "a run without accounts wrote a file"
run 0 --unset append

# Accounts of another kind only: the run form has none to offer.
printf '%s\n' '!Option:AutoSwitch' '!Account' 'NChecking' 'TBank' '^' '!Clear:AutoSwitch' \
    >"$tmp/bank-accounts.qif"
run 1 --batch "$tmp/bank-accounts.qif"
run 0 --set append
printf '%s\n' '!Type:CCard' 'D1/02/2024' 'T-8.50' 'PSHOP' '^' >"$tmp/card.qif"
run 1 --batch -o "$tmp/none.qif" "$tmp/card.qif"
said "tavvel-cli: the option append needs an account of this kind, and none is known; import the \
accounts from a QIF export first."
run 2 --batch -o "$tmp/none.qif" --account Checking "$tmp/card.qif"
said 'tavvel-cli: --account: there is no Credit Card account called "Checking"; the accounts are (none).'
[ ! -e "$tmp/none.qif" ] || fail "a run without accounts of its kind wrote a file"
run 0 --unset append

printf '%s\n' '!Option:AutoSwitch' '!Account' 'NChecking' 'TBank' '^' 'NEveryday' 'TBank' '^' \
    'NVisa' 'TCCard' '^' '!Clear:AutoSwitch' >"$tmp/accounts.qif"
run 1 --batch "$tmp/accounts.qif"
said 'File "accounts.qif" contains a list of ACCOUNTS.  Do you want Tavvel to replace the accounts it uses with this list?' "-> YES" \
    "== No Transactions =="
printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><ACCTID>000123\n<STMTTRN><DTPOSTED>20240131<TRNAMT>-12.00<NAME>SHOP</STMTTRN>\n<STMTTRN><DTPOSTED>20240201<TRNAMT>100.00<NAME>PAY</STMTTRN>\n</BANKMSGSRSV1></OFX>\n' \
    >"$tmp/bank.ofx"
run 0 --set append

run 2 --batch -o "$tmp/out.qif" "$tmp/bank.qif"
said "tavvel-cli: choose the account with --account; the accounts are Checking, Everyday."
run 2 --batch -o "$tmp/out.qif" "$tmp/bank.ofx"
said 'the statement names the account "000123", which is not a known Bank account; choose one with --account: Checking, Everyday'
run 2 --batch -o "$tmp/out.qif" --account Visa "$tmp/bank.ofx"
said '--account: there is no Bank account called "Visa"; the accounts are Checking, Everyday'
[ ! -e "$tmp/out.qif" ] || fail "a refused account wrote a file"

block=$'!Account\nNChecking\nTBank\n^\n!Type:Bank\n'
first=$'D1/31/2024\nPSHOP\nT-12.00\n^\n'
second=$'D2/1/2024\nPPAY\nT100.00\n^\n'
run 0 --batch -o "$tmp/out.qif" --account Checking --to 1/31/2024 --from 1/1/2024 "$tmp/bank.ofx"
same "$tmp/out.qif" "$block$first"
run 0 --batch -o "$tmp/out.qif" --account Checking --append --from 2/1/2024 --to 2/1/2024 \
    "$tmp/bank.ofx"
same "$tmp/out.qif" "$block$first$block$second"
run 0 --batch -o "$tmp/out.qif" --account Checking --from 2/1/2024 --to 2/1/2024 "$tmp/bank.ofx"
same "$tmp/out.qif" "$block$second"
# Other settings changes keep the last output file, which --append alone continues; only
# switching append on forgets it.
run 0 --set removeLongNumber --set amountsPrecision=3 --set append
run 0 --batch --account Checking --append --from 1/31/2024 --to 1/31/2024 "$tmp/bank.ofx"
same "$tmp/out.qif" "$block$second$block$first"
run 0 --unset append --set append
run 2 --batch --account Checking --append "$tmp/bank.ofx"
said "--append: QIF output is appended only to a file that begins with"
run 0 --batch -o "$tmp/new.qif" --account Checking --append --all "$tmp/bank.ofx"
same "$tmp/new.qif" "$block$first$second"

# A delimited layout is appended to the file the user names when asked; naming none writes
# nothing.
perl -0pi -e 's|(<key>OutputFormats</key>\s*<array>)|$1<dict><key>Name</key><string>Sheet</string><key>Type</key><string>Bank</string><key>Separator</key><string>Comma</string><key>Order</key><array><string>Date</string></array><key>Present</key><array><true/></array></dict>|' \
    "$prefs"
run 2 --output-format Sheet --append "$tmp/bank.ofx"
said "Append To: tavvel-cli: no output file was chosen, so nothing was written; name one with -o."

run 0 --unset append --set runAutomatically
run 2 --batch -o "$tmp/auto.qif" --from 1/1/2024 "$tmp/bank.ofx"
said "tavvel-cli: the option runAutomatically is on, so the run starts with the last run's settings \
as soon as the statement is read, and the run options cannot apply; leave them out, or switch \
the option off with --unset runAutomatically."
[ ! -e "$tmp/auto.qif" ] || fail "a refused automatic run wrote a file"
run 0 --batch -o "$tmp/auto.qif" "$tmp/bank.ofx"
same "$tmp/auto.qif" $'!Type:Bank\n'"$first$second"
echo "append: ok"
