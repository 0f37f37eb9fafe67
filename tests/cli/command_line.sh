#!/usr/bin/env bash
# The command line itself: version, help, a refused option, and typed answers at a terminal.
set -euo pipefail
cli=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
export XDG_CONFIG_HOME=$tmp/config HOME=$tmp/home
mkdir -p "$HOME"
fail() { echo "FAIL: $*" >&2; exit 1; }

"$cli" --version | grep -qE '^tavvel-cli [0-9]+\.[0-9]+\.[0-9]+$' || fail "--version"
"$cli" --help | grep -qF -- "--batch" || fail "--help does not list --batch"
if "$cli" --no-such-option >"$tmp/out" 2>&1; then fail "unknown option accepted"; fi
grep -qi "no-such-option" "$tmp/out" || fail "unknown option not named"
[ ! -e "$XDG_CONFIG_HOME/Tavvel/TavvelMain.prefs" ] || fail "a refused command line wrote preferences"

# Typed answers: an unusable reply is asked again, then "2" picks Add Categories, "2" says NO.
printf 'x\n2\n2\n' | "$cli" >"$tmp/out"
grep -qF "Please type a number from 1 to 2." "$tmp/out" || fail "bad reply not refused"
prefs=$XDG_CONFIG_HOME/Tavvel/TavvelMain.prefs
grep -qF "<string>dontAddCategories</string>" "$prefs" && fail "Add Categories not taken"
grep -A1 -F "<key>CheckForUpdates</key>" "$prefs" | grep -qF "<false/>" || fail "NO not taken"
echo "command line: ok"
