#!/usr/bin/env bash
# The learning example of docs/cli.md, run as written on a fresh preference folder: the
# statement, the answers and the commands are taken from the page itself, and the output
# must be the one the page shows.
source "$(dirname "$0")/lib/setup.bash" "$1"
page=$(cd "$(dirname "$0")/../../docs" && pwd)/cli.md

# block N: the Nth fenced block of the page's Example section.
block() {
    awk -v want="$1" '/^### Example/ { on = 1; next }
        on && /^```/ { inside = !inside; if (inside) n++; next }
        on && inside && n == want' "$page"
}

cd "$tmp"
block 1 >statement.csv
block 2 >answers.txt
block 4 >expected.qif
[ -s statement.csv ] && [ -s answers.txt ] && [ -s expected.qif ] || fail "the example is not on the page"
while IFS= read -r command; do
    [[ $command == tavvel-cli* ]] || fail "not a command: $command"
    eval "\"\$cli\"${command#tavvel-cli}" >/dev/null 2>>"$tmp/err" ||
        fail "$command failed: $(tail -20 "$tmp/err")"
done < <(block 3)
cmp -s out.qif expected.qif || fail "the example's output differs: $(diff -u expected.qif out.qif)"
grep -qF '2 transactions output to file "out.qif".' "$tmp/err" || fail "no closing message"
