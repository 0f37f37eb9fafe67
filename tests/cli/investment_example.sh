#!/usr/bin/env bash
# The sample brokerage statement under examples/: after the sample security list is imported,
# converted under --batch byte for byte to the sample's QIF. The one security the list lacks is
# asked about once (batch uses the statement's own name and learns it), so a second run asks
# nothing and writes the same. Without a list, the run says what it needs and still converts.
source "$(dirname "$0")/lib/setup.bash" "$1"
examples=$(cd "$(dirname "$0")/../../examples" && pwd)

first_start
run 0 --batch -o "$tmp/plain.qif" "$examples/brokerage.ofx"
said "== Need Security Names ==" "13 transactions output"

rm -rf "$XDG_CONFIG_HOME"
first_start
run 1 --batch "$examples/securities.qif"
"$cli" --batch --list securities </dev/null | grep -qxF $'Acme Widgets, Inc\tACMW' ||
    fail "the security list was not imported"
for pass in asked learned; do
    run 0 --batch -o "$tmp/$pass.qif" "$examples/brokerage.ofx"
    cmp -s "$tmp/$pass.qif" "$examples/brokerage.qif" ||
        fail "$pass: $(diff -u "$examples/brokerage.qif" "$tmp/$pass.qif")"
    count=$(grep -c "== Investment Transaction: Unknown Security ==" "$tmp/err" || true)
    [ "$count" -eq "$([ $pass = asked ] && echo 1 || echo 0)" ] ||
        fail "$pass: $count security questions"
done
echo "investment example: ok"
