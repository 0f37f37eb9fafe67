#!/usr/bin/env bash
# The sample input formats under examples/: each .tvfm imported into a fresh store, then its
# sample statement converted under --batch, byte for byte to the sample's QIF. Each statement
# is then converted once more with the other formats stored too, so the format is still
# chosen by its own Match text among several.
source "$(dirname "$0")/lib/setup.bash" "$1"
examples=$(cd "$(dirname "$0")/../../examples" && pwd)
samples=(csv-export.csv european-semicolon.csv web-page.txt)

convert() {
    local sample=$1 expected=$examples/${1%.*}.qif
    run 0 --batch -o "$tmp/${sample%.*}.qif" "$examples/$sample"
    cmp -s "$tmp/${sample%.*}.qif" "$expected" ||
        fail "$sample: $(diff -u "$expected" "$tmp/${sample%.*}.qif")"
    grep -qF "error record" "$tmp/err" && fail "$sample: error records: $(cat "$tmp/err")"
    return 0
}

for sample in "${samples[@]}"; do
    rm -rf "$XDG_CONFIG_HOME"
    first_start
    run 0 --batch "$examples/${sample%.*}.tvfm"
    said "== Input Format Imported =="
    convert "$sample"
done

for sample in "${samples[@]}"; do
    run 0 --batch "$examples/${sample%.*}.tvfm"
done
[ "$("$cli" --batch --list formats </dev/null | wc -l)" -eq 3 ] || fail "not three formats stored"
for sample in "${samples[@]}"; do
    convert "$sample"
done
echo "example formats: ok"
