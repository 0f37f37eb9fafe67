#!/usr/bin/env bash
# --set, --unset and --settings change settings as the preferences dialog would: options of
# one pop-up exclude each other, a switch the dialog greys out cannot be turned on, valued
# settings check their values, a list with one wrong change changes nothing, and the changes
# show in the next conversion.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><STMTTRN><DTPOSTED>20240131<TRNAMT>-12.00<NAME>CORNER GROCERY<MEMO>weekly shop</STMTTRN></BANKMSGSRSV1></OFX>\n' \
    >"$tmp/bank.ofx"

# option NAME on|off: the saved option list holds the name, or does not.
option() {
    local held=off
    grep -qF "<string>$1</string>" "$prefs" && held=on
    [ "$held" = "$2" ] || fail "option $1 is $held, not $2"
}
# shown NAME STATE: --settings prints the option or setting with this state or value.
shown() {
    run 0 --settings
    grep -qE "^  $1 +$2( |\$)" "$tmp/out" || fail "--settings does not show $1 $2: $(cat "$tmp/out")"
}
# refused TEXT ARGS...: the changes are refused with the line "tavvel-cli: TEXT; nothing was
# changed." and the preference file is unchanged.
# (A plain start first: after a change the next start merges the accounts into the categories
# again and marks that it did, as it does after every save of the preferences dialog.)
refused() {
    local text=$1
    shift
    run 0 --batch
    cp "$prefs" "$tmp/prefs-before"
    run 2 "$@"
    said "tavvel-cli: $text; nothing was changed."
    cmp -s "$prefs" "$tmp/prefs-before" || fail "refused $* changed the preferences"
}

run 0 --set initialCaps --set markBankTransactionsAsCleared
option initialCaps on
option markBankTransactionsAsCleared on
shown initialCaps on
run 0 --batch -o - "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD1/31/2024\nPCorner Grocery\nMWeekly Shop\nT-12.00\nC*\n^\n'

# One pop-up: the second item replaces the first; switching it off leaves neither.
run 0 --set markBankTransactionsAsUncleared
option markBankTransactionsAsCleared off
option markBankTransactionsAsUncleared on
run 0 --unset markBankTransactionsAsUncleared --unset initialCaps
option markBankTransactionsAsUncleared off
option initialCaps off
run 0 --set useCategoriesIfPresent
option dontAddCategories off
option useCategoriesIfPresent on
run 0 --set dontAddCategories --set justStop
option useCategoriesIfPresent off
run 0 --set justFinishLater
option justStop off
option justFinishLater on

# Dependent switches, in the order given; switching append off clears its dependant.
refused "showAllAccountNames can be switched on only while append is on" --set showAllAccountNames
run 0 --set append --set showAllAccountNames
option showAllAccountNames on
run 0 --unset append
option showAllAccountNames off
refused "updateCategoryWhenDescriptionChanged can be switched on only while none of \
baseCategoriesOnCategories, useCategoriesIfPresent and dontAddCategories is on" \
    --set updateCategoryWhenDescriptionChanged

# Names and values.
refused 'there is no option called "initialcaps" (--settings lists them)' --set initialcaps
refused "removeLongNumber is an option: use --set removeLongNumber or --unset removeLongNumber" \
    --set removeLongNumber=true
refused "bccAmountsPrecision takes a value: use --set bccAmountsPrecision=VALUE" \
    --unset bccAmountsPrecision
refused 'bccAmountsPrecision must be a whole number from 2 to 6, not "7"' --set bccAmountsPrecision=7
refused 'SUEnableAutomaticChecks must be true or false, not "maybe"' \
    --set SUEnableAutomaticChecks=maybe
refused '--unset takes an option name, not "DescriptionOutput=%d"' --unset DescriptionOutput=%d
refused "there is no setting called Colour (--settings lists them)" --set Colour=blue
refused 'there is no option called "nope" (--settings lists them)' --set removeLongNumber --set nope
refused "MemoOutput must be one line of text" --set $'MemoOutput=%m\n%d'
option removeLongNumber off

run 0 --set 'DescriptionOutput=%d (%m)' --set bccAmountsPrecision=3 --set SUEnableAutomaticChecks=no
shown 'DescriptionOutput=%d \(%m\)' '#'
shown bccAmountsPrecision=3 '#'
shown SUEnableAutomaticChecks=false '#'
run 0 --batch -o - "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD1/31/2024\nPCORNER GROCERY (weekly shop)\nMweekly shop\nT-12.00\n^\n'
run 0 --set DescriptionOutput=%d

# Day-first output dates from every start: range dates are then read day first too.
run 0 --set outputEuropeanDates=true
run 0 --batch -o - --from 31/1/2024 --to 31/1/24 "$tmp/bank.ofx"
same "$tmp/out" $'!Type:Bank\nD31/1/2024\nPCORNER GROCERY\nMweekly shop\nT-12.00\n^\n'
run 2 --batch -o - --from 1/31/2024 "$tmp/bank.ofx"
said '--from: "1/31/2024" is not a day written day/month/year'
echo "settings: ok"
