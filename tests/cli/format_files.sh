#!/usr/bin/env bash
# Input formats in and out of tavvel-cli as .tvfm files: opening one imports it (its own name
# under --batch, a typed one at a terminal), --export-format writes one, --list shows the
# store, and a file that holds no format is refused without touching the store.
source "$(dirname "$0")/lib/setup.bash" "$1"

"$cli" --batch </dev/null >/dev/null
cat >"$tmp/visa.tvfm" <<'PLIST'
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Name</key>
	<string>Visa</string>
	<key>Fields</key>
	<string>CSV</string>
	<key>Match</key>
	<string>VISA STATEMENT</string>
</dict>
</plist>
PLIST

out=$("$cli" --batch "$tmp/visa.tvfm" </dev/null 2>&1)
grep -qF "== Input Format Imported ==" <<<"$out" || fail "batch import not reported: $out"
grep -qF "Input format \"Visa\" imported from file \"$tmp/visa.tvfm'." <<<"$out" ||
    fail "import text: $out"
[ "$("$cli" --batch --list formats </dev/null)" = "Visa" ] || fail "Visa not listed"

out=$(printf 'Visa Card\n' | "$cli" "$tmp/visa.tvfm" 2>&1)
grep -qF "Input format \"Visa Card\" imported" <<<"$out" || fail "typed name not taken: $out"
out=$(printf '.\n' | "$cli" "$tmp/visa.tvfm" 2>&1)
grep -qF "== Name of the imported input format: ==" <<<"$out" || fail "name not asked: $out"
grep -qF "An input format with this name exists already; importing replaces it." <<<"$out" ||
    fail "duplicate name not noted"
[ "$("$cli" --batch --list formats </dev/null)" = "$(printf 'Visa\nVisa Card')" ] ||
    fail "cancelled import changed the store"

out=$("$cli" --batch --export-format "visa card" "$tmp/out.tvfm" </dev/null 2>&1)
grep -qF "== Input Format Exported ==" <<<"$out" || fail "export not reported"
grep -qF "Input format \"visa card\" saved in file \"$tmp/out.tvfm'." <<<"$out" ||
    fail "export text: $out"
grep -qF "<string>Visa Card</string>" "$tmp/out.tvfm" || fail "exported file lacks the record"
grep -qF "<string>VISA STATEMENT</string>" "$tmp/out.tvfm" || fail "exported record incomplete"
if "$cli" --batch --export-format Amex "$tmp/amex.tvfm" </dev/null 2>"$tmp/err"; then
    fail "unknown format exported"
fi
grep -qxF "tavvel-cli: there is no input format named \"Amex\"." "$tmp/err" ||
    fail "unknown format not named"
if "$cli" --batch --export-format Visa "$tmp/missing/visa.tvfm" </dev/null 2>"$tmp/err"; then
    fail "a format was exported into a missing folder"
fi
grep -qxF "tavvel-cli: the input format could not be written to $tmp/missing/visa.tvfm." \
    "$tmp/err" || fail "unwritten export not said: $(cat "$tmp/err")"

echo "not a property list" >"$tmp/bad.tvfm"
cp "$prefs" "$tmp/before"
if out=$("$cli" --batch "$tmp/bad.tvfm" </dev/null 2>&1); then fail "bad file accepted"; fi
grep -qF "The file \"$tmp/bad.tvfm\" does not hold an input format (it is not a property list), \
so nothing was imported." <<<"$out" || fail "bad file reason: $out"
cmp -s "$prefs" "$tmp/before" || fail "bad file changed the store"
if "$cli" --list payees >/dev/null 2>&1; then fail "unknown list accepted"; fi
echo "format files: ok"
