#!/usr/bin/env bash
# tavvel-cli --batch on an empty configuration folder, twice: the first run answers the
# first-run questions with their first button and leaves every default; the second asks
# nothing and leaves the file as it was.
source "$(dirname "$0")/lib/setup.bash" "$1"

first=$("$cli" --batch </dev/null 2>&1)
for title in "Tavvel First Run" "Tavvel Primary Usage?" "Checking For Updates"; do
    grep -qF "== $title ==" <<<"$first" || fail "first run did not show '$title'"
done
grep -qF -- "-> Just Convert" <<<"$first" || fail "first button not taken"
[ -f "$prefs" ] || fail "no preference file written"
for key in Preferences amountsPrecision pricesPrecision sharesPrecision bccAmountsPrecision \
    OutputDateFormat OutputDateFormatShortYear DescriptionOutput MemoOutput CheckForUpdates \
    SUEnableAutomaticChecks LastRootDirectory ControlSettings Categories convertedFromPlist; do
    grep -qF "<key>$key</key>" "$prefs" || fail "default $key missing"
done
for name in dontAddCategories textConfirmAllTransactions converted2.2 accountsInCategories; do
    grep -qF "<string>$name</string>" "$prefs" || fail "option $name missing"
done
cp "$prefs" "$tmp/after-first"

second=$("$cli" --batch </dev/null 2>&1)
[ -z "$second" ] || fail "second run said: $second"
cmp -s "$prefs" "$tmp/after-first" || fail "second run changed the preference file"
ls "$XDG_CONFIG_HOME/Tavvel" | grep -q tmp && fail "temporary file left behind"
echo "batch start: ok"
