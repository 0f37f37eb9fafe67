#!/usr/bin/env bash
# Real statements from the shared corpus next to the source tree, through tavvel-cli --batch as
# a new user meets them: each file in a fresh store that holds the sample input formats of
# examples/, and the outcome compared with its line in tests/corpus/outcomes.txt: converted,
# with the number of transactions written and the sum of their amounts, or not, with the title
# of the last message. A file with answers kept in data/corpus-NAME.answers has a second line,
# "learned": an input format NAME is learned from the file through those answers (--learn with
# the answers piped in; they end at the run's first confirmation) and the file converted
# through it. Any change in what a real file does shows here. Skipped (77) when the corpus is
# absent. With --write as second argument the table is written from what happens now.
source "$(dirname "$0")/lib/setup.bash" "$1"
here=$(cd "$(dirname "$0")/../.." && pwd)
corpus=$here/../shared/corpus
answers=$here/tests/cli/data
table=$here/tests/corpus/outcomes.txt
[ -d "$corpus" ] || { echo "no corpus at $corpus: skipped"; exit 77; }

first_start
for format in "$here"/examples/*.tvfm; do
    run 0 --batch "$format"
done
cp -r "$XDG_CONFIG_HOME" "$tmp/stored"

fresh_store() {
    rm -rf "$XDG_CONFIG_HOME"
    cp -r "$tmp/stored" "$XDG_CONFIG_HOME"
}

# outcome FILE [ARGS...]: "converted N SUM" when an output file was written, else the exit
# status and what was said; ARGS go to tavvel-cli before the file.
outcome() {
    local status=0 out=$tmp/output.qif file=$1
    shift
    rm -f "$out"
    "$cli" --batch -o "$out" "$@" "$file" </dev/null >/dev/null 2>"$tmp/err" || status=$?
    if [ "$status" -eq 0 ] && [ -f "$out" ]; then
        awk '/^\^/ { n++ } /^T/ { t = substr($0, 2); gsub(/,/, "", t); sum += t }
             END { s = sprintf("%.4f", sum); if (s == "-0.0000") s = "0.0000"
                   printf "converted %d %s\n", n, s }' "$out"
        return
    fi
    last_said "exit $status"
}

# last_said PREFIX: PREFIX and the title of the last message, else the start of the terminal's own
# word on it.
last_said() {
    local title
    title=$(grep -E '^== .* ==$' "$tmp/err" | tail -n 1 | sed -E 's/^== (.*) ==$/\1/')
    [ -n "$title" ] || title=$(grep -m 1 '^tavvel-cli: ' "$tmp/err" | sed -E 's/^tavvel-cli: ([^,;]*).*/\1/')
    echo "$1 ${title:-(nothing said)}"
}

# learned FILE NAME: the outcome of FILE through the input format NAME learned from it.
learned() {
    fresh_store
    "$cli" --learn "$2" -o "$tmp/learning.qif" "$1" <"$answers/corpus-$2.answers" \
        >/dev/null 2>"$tmp/err" || true
    if ! "$cli" --batch --list formats </dev/null | grep -qxF "$2"; then
        last_said "not learned:"
        return
    fi
    outcome "$1" --input-format "$2"
}

actual=$tmp/actual
(cd "$corpus" && find . -type f ! -name SOURCES.md | sed 's|^\./||' | LC_ALL=C sort) |
    while read -r file; do
        fresh_store
        printf '%s\t%s\n' "$file" "$(outcome "$corpus/$file")"
        name=$(basename "${file%.*}")
        [ -f "$answers/corpus-$name.answers" ] || continue
        printf '%s learned\t%s\n' "$file" "$(learned "$corpus/$file" "$name")"
    done >"$actual"

if [ "${2:-}" = "--write" ]; then
    { echo "# What tavvel-cli --batch makes of each corpus file (tests/cli/corpus_outcomes.sh)."
      echo "# A \"learned\" line: through the format learned from tests/cli/data/corpus-NAME.answers."
      cat "$actual"; } >"$table"
    echo "written $table: $(grep -c $'\tconverted' "$actual") of $(wc -l <"$actual") converted"
    exit 0
fi
diff -u <(grep -v '^#' "$table") "$actual" >&2 || fail "corpus outcomes differ from $table"
echo "corpus outcomes: $(grep -c $'\tconverted' "$actual") of $(wc -l <"$actual") converted"
