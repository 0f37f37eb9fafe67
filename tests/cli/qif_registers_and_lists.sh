#!/usr/bin/env bash
# QIF exports that mix lists and registers under --batch: transactions before a category list,
# or after an account list whose "!Option:AutoSwitch" is never cleared, are converted (they
# were passed over as lists); a register of another kind is counted as skipped, never read as
# bank transactions; a second account's register refuses the file; transactions after the
# lists are read as before.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

printf '%s\n' '!Type:Bank' 'D1/2/2024' 'PSHOP' 'T-5.00' '^' 'D1/3/2024' 'PPAY' 'T100.00' '^' \
    '!Type:Cat' 'NFood' 'DSpending on food' '^' 'NRent' '^' >"$tmp/before.qif"
run 0 --batch -o "$tmp/before-out.qif" "$tmp/before.qif"
said 'File "before.qif" contains a list of CATEGORIES.'
same "$tmp/before-out.qif" $'!Type:Bank\nD1/2/2024\nPSHOP\nT-5.00\n^\nD1/3/2024\nPPAY\nT100.00\n^\n'

# The account list stays open; the last block before the register names its account.
printf '%s\n' '!Option:AutoSwitch' '!Account' 'NVisa' 'TCCard' '^' 'NSavings' 'TBank' '^' \
    '!Account' 'NChecking' 'TBank' '^' '!Type:Bank ' 'D2/1/2024' 'PRENT' 'T-700.00' '^' \
    '!Type:Invst' 'D2/2/2024' 'NBuy' 'YACME' 'T-50.00' '^' \
    '!Type:Security' 'NAcme' 'SACME' 'TStock' '^' >"$tmp/autoswitch.qif"
run 0 --batch -o "$tmp/autoswitch-out.qif" "$tmp/autoswitch.qif"
said 'File "autoswitch.qif" contains a list of ACCOUNTS.' '== Transactions Skipped ==' \
    'File "autoswitch.qif" holds transactions in more than one section.  Only those of the first are converted; those of the others (another kind of account, or investment transactions) were skipped: 1 in all.'
same "$tmp/autoswitch-out.qif" $'!Type:Bank\nD2/1/2024\nPRENT\nT-700.00\n^\n'
run 0 --list accounts
[ "$(cat "$tmp/out")" = $'Visa\tCCard\nSavings\tBank\nChecking\tBank' ] ||
    fail "accounts imported: $(cat "$tmp/out")"

printf '%s\n' '!Account' 'NSavings' 'TBank' '^' '!Type:Bank' 'D3/1/2024' 'T1.00' '^' \
    >>"$tmp/autoswitch.qif"
run 1 --batch -o "$tmp/several-out.qif" "$tmp/autoswitch.qif"
said 'File "autoswitch.qif" contains transactions for multiple accounts; it cannot be processed.  Tavvel handles only one account at a time.'
[ ! -e "$tmp/several-out.qif" ] || fail "a file of several accounts was converted"

# Lists first, then the register of one account: as it always was.
printf '%s\n' '!Type:Cat' 'NFood' '^' '!Option:AutoSwitch' '!Account' 'NChecking' 'TBank' '^' \
    '!Clear:AutoSwitch' '!Account' 'NChecking' 'TBank' '^' '!Type:Bank' 'D4/1/2024' 'PGAS' \
    'T-30.00' 'LFood' '^' >"$tmp/after.qif"
run 0 --batch -o "$tmp/after-out.qif" "$tmp/after.qif"
grep -qF "Transactions Skipped" "$tmp/err" && fail "nothing was skipped: $(cat "$tmp/err")"
same "$tmp/after-out.qif" $'!Type:Bank\nD4/1/2024\nPGAS\nT-30.00\nLFood\n^\n'
