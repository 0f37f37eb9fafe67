#!/usr/bin/env bash
# tavvel-cli --batch on an empty configuration folder, twice: the first run answers the
# first-run questions with their first button and leaves every default; the second asks
# nothing and leaves the file as it was.
source "$(dirname "$0")/lib/setup.bash" "$1"

"$cli" --batch </dev/null 2>"$tmp/err"
first=$(<"$tmp/err")
said_whole "Tavvel processed files, producing output files.  If you launch it with a file (e.g. by \
dragging a file to its icon), it will try to process that file.\r\rIf you launch it without a \
file it will scan the clipboard for a date.  If it contins a date, it will try to process the \
data in the clipboard.\r\rOtherwise use the file menu to selct a file.\r\r== Tavvel Primary Usage? =="
said_whole "Will your primary use of Tavvel be to convert data from one format to another without \
modification, or add categories to transactions?\r\rYour answer will be used only to default the \
preferences, which can be changed later to customize Tavvel in many different ways."
said "Would you like to automatically check for program updates?  You can change this \
preference in the future via the Preferences."
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
# A first start beside the predecessor's preference file takes it over and says so.
rm -r "$XDG_CONFIG_HOME"
mkdir -p "$XDG_CONFIG_HOME/Tavvel"
printf '%s\n' '<?xml version="1.0" encoding="UTF-8"?>' \
    '<plist version="1.0"><dict><key>amountsPrecision</key><integer>3</integer></dict></plist>' \
    >"$XDG_CONFIG_HOME/Tavvel/PelladonMain.prefs"
run 0 --batch
said_whole "Otherwise use the file menu to selct a file.\r\rPreferences for the legacy application \
Pelladon were found, so they have been copied over into the Tavvel Preferences.\r\r== "
grep -qF '<integer>3</integer>' "$prefs" || fail "the predecessor's settings were not taken over"
echo "batch start: ok"
