#!/usr/bin/env bash
# The command line itself: version, help, a refused option, and typed answers at a terminal.
source "$(dirname "$0")/lib/setup.bash" "$1"

run 0 --version
grep -qE '^tavvel-cli [0-9]+\.[0-9]+\.[0-9]+$' "$tmp/out" || fail "--version"
run 0 --help
for option in --batch --output --append --account --all --last-month --from --to \
    --output-format --qif-type --ofx-type --same-date --same-number --set --unset --settings; do
    grep -qF -- "$option" "$tmp/out" || fail "--help does not list $option"
done
[ ! -s "$tmp/err" ] || fail "--help wrote to standard error"
run 2 --no-such-option
said "no-such-option"
[ ! -s "$tmp/out" ] || fail "a usage error was printed on standard output"
[ ! -e "$prefs" ] || fail "a refused command line wrote preferences"

# Typed answers: an unusable reply is asked again, then "2" picks Add Categories, "2" says NO.
printf 'x\n2\n2\n' | "$cli" >"$tmp/out" 2>"$tmp/err"
[ ! -s "$tmp/out" ] || fail "forms were printed on standard output"
grep -qF "Please type a number from 1 to 2." "$tmp/err" || fail "bad reply not refused"
grep -qF "<string>dontAddCategories</string>" "$prefs" && fail "Add Categories not taken"
grep -A1 -F "<key>CheckForUpdates</key>" "$prefs" | grep -qF "<false/>" || fail "NO not taken"

# A temporary folder that is gone ends the run with a message, not an abort.
first_start
TMPDIR=$tmp/gone run 1 --batch -o - "$(dirname "$0")/../../examples/checking.ofx"
said "tavvel-cli: the temporary folder (TMPDIR) is missing or not a folder, so standard output \
cannot be prepared; set TMPDIR to a folder that exists."
[ ! -s "$tmp/out" ] || fail "a refused run printed on standard output"
TMPDIR=/proc run 1 --batch -o - "$(dirname "$0")/../../examples/checking.ofx"
said "tavvel-cli: cannot create a temporary folder in /proc for standard output; set TMPDIR to a \
writable folder."

# A program copied away from its configuration file says where it looked.
mkdir "$tmp/bin"
cp "$cli" "$tmp/bin/"
cli=$tmp/bin/tavvel-cli run 1 --batch
said "tavvel-cli: the configuration file \"$tmp/share/tavvel/Info.plist\" is missing or damaged; \
reinstall Tavvel."

echo "command line: ok"
