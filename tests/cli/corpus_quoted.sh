#!/usr/bin/env bash
# Real exports of the shared corpus whose fields are all in double quotes: an input format is
# learned from each through the answers kept in data/corpus-NAME.answers, and the statement
# converted with it under --batch gives the number of transactions and their sum worked out
# from the file by hand. Skipped (status 77) when the corpus is absent.
source "$(dirname "$0")/lib/setup.bash" "$1"
corpus=$(cd "$(dirname "$0")/../.." && pwd)/../shared/corpus/csv
[ -d "$corpus" ] || { echo "no corpus at $corpus"; exit 77; }
first_start

# check NAME COUNT SUM: learn the format NAME from the corpus file NAME.csv, convert the file.
check() {
    local answers
    answers=$(dirname "$0")/data/corpus-$1.answers
    # The learning run stops at its first confirmation: the answers end there.
    "$cli" --learn "$1" -o "$tmp/learned.qif" "$corpus/$1.csv" <"$answers" >/dev/null 2>"$tmp/err" || true
    "$cli" --batch --list formats </dev/null | grep -qxF "$1" ||
        fail "no format learned from $1: $(tail -20 "$tmp/err")"
    run 0 --batch --input-format "$1" -o "$tmp/$1.qif" "$corpus/$1.csv"
    local got
    got=$(awk '/^\^/ { n++ } /^T/ { s += substr($0, 2) } END { printf "%d %.2f", n, s }' "$tmp/$1.qif")
    [ "$got" = "$2 $3" ] || fail "$1: $got transactions and sum, not $2 $3"
}

check us-paypal-activity-export 7 9.41
check fr-sample-cp1252-euro 3 20.00
echo "corpus_quoted: ok"
