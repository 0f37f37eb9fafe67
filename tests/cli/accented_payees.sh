#!/usr/bin/env bash
# Accented payees across encodings: an instruction learned from a Windows-1252 statement is
# kept as UTF-8 text, so the preference file stays well-formed XML, and it applies to the same
# payee in a UTF-8 statement written in another letter case. A preference file written with
# such bytes raw, or with a control character XML cannot hold, is read and rewritten clean.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
"$cli" --batch --unset dontAddCategories </dev/null 2>/dev/null || fail "option not switched off"

# A well-formed property list: valid UTF-8, and accepted by xmllint where it is installed.
well_formed() {
    iconv -f UTF-8 -t UTF-8 "$prefs" >/dev/null 2>&1 || fail "the preference file is not UTF-8"
    if command -v xmllint >/dev/null; then
        xmllint --noout "$prefs" 2>"$tmp/xml" || fail "malformed XML: $(cat "$tmp/xml")"
    fi
}

printf '!Type:Bank\nD1/02/2024\nT-5.00\nPCAF\xC9 ROYAL\n^\n' >"$tmp/latin1.qif"
printf '%s\n' 'category Dining' save | "$cli" -o "$tmp/latin1-out.qif" "$tmp/latin1.qif" \
    >"$tmp/out" 2>"$tmp/err" || fail "interactive run failed: $(cat "$tmp/err")"
said "== Create New Instruction ==" '1 transaction output to file "latin1-out.qif".' \
    "The transaction shown above does not match any instruction that Tavvel already knows \
about.  Please specify how you would like transactions matching this description to be \
handled in the future."
well_formed
grep -qF '<string>CAFÉ ROYAL</string>' "$prefs" || fail "the match text is not stored as UTF-8"

printf '%s\n' '!Type:Bank' 'D2/02/2024' 'T-8.50' 'Pcafé royal paris' '^' >"$tmp/utf8.qif"
run 0 --batch -o "$tmp/utf8-out.qif" "$tmp/utf8.qif"
same "$tmp/utf8-out.qif" $'!Type:Bank\nD2/2/2024\nPcafé royal paris\nT-8.50\nLDining\n^\n'

# An older file: a raw Windows-1252 match text, and a control character in another entry.
old=$'<key>Instructions</key><array><dict><key>descriptionMatch</key><string>M\xdcLLER</string>'
old+=$'<key>category</key><string>Groceries</string></dict></array>'
old+=$'<key>Note</key><string>a\x01b</string><key>Unused</key>'
sed -i "s|<key>Instructions</key>|$old|" "$prefs"
printf '%s\n' '!Type:Bank' 'D3/02/2024' 'T-12.00' 'PMüller GmbH' '^' >"$tmp/mueller.qif"
run 0 --batch -o "$tmp/mueller-out.qif" "$tmp/mueller.qif"
same "$tmp/mueller-out.qif" $'!Type:Bank\nD3/2/2024\nPMüller GmbH\nT-12.00\nLGroceries\n^\n'
well_formed
grep -qF '<string>MÜLLER</string>' "$prefs" || fail "the old match text was not rewritten as UTF-8"
grep -qF '<string>a�b</string>' "$prefs" || fail "the control character was not replaced"
echo "accented payees: ok"
