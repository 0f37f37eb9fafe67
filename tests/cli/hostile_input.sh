#!/usr/bin/env bash
# Inputs no bank sends on purpose, through tavvel-cli --batch: each exits 1 with its title and a
# message naming the file, and leaves the output file and the store as they were. Text in UTF-16
# with a byte-order mark is not hostile: it converts like the same text in UTF-8. Big inputs
# are made here and removed at exit; the 200 MB and 50 MB cases are in bench/hostile_inputs.sh.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

# refused NAME TITLE MESSAGE: the input $tmp/NAME is refused with the title and message; the
# output file and the store are left alone.
refused() {
    printf 'keep me\n' >"$tmp/kept.qif"
    cp "$prefs" "$tmp/prefs-before"
    run 1 --batch -o "$tmp/kept.qif" "$tmp/$1"
    said "== $2 ==" "$3" "tavvel-cli: nothing was converted from \"$1\"."
    same "$tmp/kept.qif" $'keep me\n'
    # Only the folder of the last input is remembered.
    diff <(grep -v "$tmp" "$tmp/prefs-before") <(grep -v "$tmp" "$prefs") >&2 ||
        fail "$1 changed the store"
}
not_text() { echo "File \"$1\" does not appear to be a statement: its bytes are not text, so it \
cannot be processed.  Tavvel reads bank statements saved as OFX, QFX, QIF or text."; }

: >"$tmp/empty.qif"
refused empty.qif "No Transactions" "File \"empty.qif\" contains no QIF transactions to process."

# A folder is stopped by the command line's own check, as a usage error.
mkdir "$tmp/folder.qif"
printf 'keep me\n' >"$tmp/kept.qif"
run 2 --batch -o "$tmp/kept.qif" "$tmp/folder.qif"
said "File is actually a directory: $tmp/folder.qif"
same "$tmp/kept.qif" $'keep me\n'
# So are a pipe and a device, which would wait for a writer or never end; as the output they are
# refused by the run, and the statement is not converted.
mkfifo "$tmp/pipe.qif"
printf '!Type:Bank\nD1/2/2024\nT-5.00\nPSHOP\n^\n' >"$tmp/one.qif"
for input in "$tmp/pipe.qif" /dev/zero; do
    run 2 --batch -o "$tmp/kept.qif" "$input"
    said "File is a pipe or a device, not a file: $input; save the statement to a file and name \
that file"
done
# (the pipe last: the folder of the last output is remembered)
for output in /dev/null "$tmp/pipe.qif"; do
    run 1 --batch -o "$output" "$tmp/one.qif"
    said "== Output File Not Written ==" "\"$output\" is a folder, a device or a pipe, not a file, \
so the output cannot be written to it.  Choose another output file, then process the \
transactions again."
done
[ -p "$tmp/pipe.qif" ] || fail "the pipe was replaced"
same "$tmp/kept.qif" $'keep me\n'

if [ "$(id -u)" -ne 0 ]; then # root reads a file whatever its mode
    printf '!Type:Bank\nD1/2/2024\nT-5.00\n^\n' >"$tmp/locked.qif"
    chmod 000 "$tmp/locked.qif"
    refused locked.qif "Cannot Read File" "File \"locked.qif\" cannot be read.  Check that it is \
a file and that you may open it."
fi

head -c 4194304 /dev/urandom >"$tmp/random.bin"
refused random.bin "Invalid Input" "$(not_text random.bin)"

# Without control bytes, but 8-bit throughout: no encoding of a statement explains it.
head -c 1048576 /dev/urandom | tr '\000-\177' '\200-\377' >"$tmp/high.csv"
refused high.csv "Invalid Input" "$(not_text high.csv)"

head -c 65536 /dev/zero >"$tmp/zeros.txt"
refused zeros.txt "Invalid Input" "$(not_text zeros.txt)"

head -c 4194304 /dev/zero | tr '\0' 'x' >"$tmp/line.txt"
refused line.txt "Invalid Input" "The input is not in QIF format, and does not appear to \
contain a date.  It cannot be processed."

ofx='OFXHEADER:100\r\nDATA:OFXSGML\r\n\r\n<OFX><SIGNONMSGSRSV1><SONRS></SONRS></SIGNONMSGSRSV1>'
printf "$ofx<BANKMSG" >"$tmp/cut.ofx"
refused cut.ofx "Invalid Input" "File \"cut.ofx\" appears to contain QFX/OFX but does not \
represent Bank or Credit Card transactions; it cannot be processed."
# Cut inside a transaction's tag: that transaction is an error record, skipped under --batch,
# and with nothing left to write the output file stays as it was.
printf "$ofx<BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKACCTFROM><ACCTID>12345</ACCTID></BANKACCTFROM>\
<BANKTRANLIST><STMTTRN><TRNTYPE>DEBIT<DTPOS" >"$tmp/cut-inside.ofx"
printf 'keep me\n' >"$tmp/kept.qif"
run 0 --batch -o "$tmp/kept.qif" "$tmp/cut-inside.ofx"
said "== Error ==" "The following OFX transaction is cut off where the file ends; it cannot be \
processed: <TRNTYPE>DEBIT<DTPOS" "No transactions output." "tavvel-cli: 1 error record skipped."
same "$tmp/kept.qif" $'keep me\n'

# Continuation files: garbage, a property list of the wrong shape, and a record that stops at a
# transaction it does not hold.
damaged() { echo "Continuation file \"$1\" is damaged: it does not hold the run that was stopped, \
so it cannot be resumed."; }
head -c 8192 /dev/urandom >"$tmp/junk.tvcn"
refused junk.tvcn "Invalid Continuation File" "Continuation file \"junk.tvcn\" cannot be read as \
a continuation file; it cannot be processed.  Open the .tvcn file that Tavvel saved when you chose \
to finish later."
printf '<?xml version="1.0"?>\n<plist version="1.0"><array><string>x</string></array></plist>\n' \
    >"$tmp/list.tvcn"
refused list.tvcn "Invalid Continuation File" "$(damaged list.tvcn)"
{
    printf '<?xml version="1.0"?>\n<plist version="1.0"><dict>'
    printf '<key>qif</key><array><dict><key>date</key><string>1/2/2024</string></dict></array>'
    printf '<key>fileAsString</key><string>!Type:Bank\n</string>'
    printf '<key>currentTransactionIndex</key><integer>5</integer>'
    printf '<key>numberOfTransactionsAppended</key><integer>0</integer>'
    printf '<key>outputFormatText</key><string>QIF</string>'
    printf '<key>sameDateSwitch</key><false/><key>sameNumberSwitch</key><false/>'
    printf '<key>outputDateString</key><string></string>'
    printf '<key>outputNumberString</key><string></string>'
    printf '<key>account</key><string>Checking</string></dict></plist>\n'
} >"$tmp/beyond.tvcn"
refused beyond.tvcn "Invalid Continuation File" "$(damaged beyond.tvcn)"

# Keys of the wrong type, at the top and inside a transaction or split, would otherwise resume
# into a transaction written without its amount, date or splits.
# stopped TRANSACTION [TOP]: a continuation stopped at its only transaction.
stopped() {
    printf '<?xml version="1.0"?>\n<plist version="1.0"><dict><key>qif</key><array>%s</array>' "$1"
    printf '<key>fileAsString</key><string>!Type:Bank\n</string>'
    printf '<key>currentTransactionIndex</key><integer>0</integer>'
    printf '<key>numberOfTransactionsAppended</key><integer>0</integer>'
    printf '<key>outputFormatText</key><string>QIF</string><key>sameDateSwitch</key><false/>'
    printf '<key>outputDateString</key><string></string><key>outputNumberString</key><string></string>'
    printf '<key>account</key><string></string>%s</dict></plist>\n' "${2:-<key>sameNumberSwitch</key><false/>}"
}
d='<key>date</key><string>1/3/2024</string>' p='<key>description</key><string>CAFE</string>'
a='<key>amount</key><string>-6.00</string>'
split='<key>category</key><string>Food</string><key>memo</key><string></string>'
stopped "<dict>$d$p$a<key>splits</key><array><dict>$a$split</dict></array></dict>" >"$tmp/whole.tvcn"
run 0 --batch -o - "$tmp/whole.tvcn"
same "$tmp/out" $'!Type:Bank\nD1/3/2024\nPCAFE\nT-6.00\nSFood\nE\n$-6.00\n^\n'
i=0
for wrong in "<dict>$d$p<key>amount</key><integer>-6</integer></dict>" \
    "<dict><key>date</key><array/>$p$a</dict>" "<dict>$d$p$a<key>splits</key><string/></dict>" \
    "<dict>$d$p$a<key>splits</key><array><dict><key>amount</key><real>-6</real>$split</dict></array></dict>" \
    "<dict>$d$p$a<key>splits</key><array><string>Food</string></array></dict>" \
    "<dict>$d$p$a<key>outputLength</key><string>9</string></dict>"; do
    i=$((i + 1))
    stopped "$wrong" >"$tmp/typed$i.tvcn"
    refused "typed$i.tvcn" "Invalid Continuation File" "$(damaged "typed$i.tvcn")"
done
stopped "<dict>$d$p$a</dict>" "<key>sameNumberSwitch</key><string>NO</string>" >"$tmp/top.tvcn"
refused top.tvcn "Invalid Continuation File" "$(damaged top.tvcn)"

# Format files: garbage, and a property list of the wrong shape.
for name in junk list; do
    cp "$prefs" "$tmp/prefs-before"
    case $name in
    junk) head -c 8192 /dev/urandom >"$tmp/$name.tvfm" ;;
    list) cp "$tmp/list.tvcn" "$tmp/$name.tvfm" ;;
    esac
    run 1 --batch "$tmp/$name.tvfm"
    said "$name.tvfm"
    cmp -s "$prefs" "$tmp/prefs-before" || fail "$name.tvfm changed the store"
done
said "it does not hold a format record"

# Formats whose transactions would never end or never advance: no date marks and not one
# transaction a line (every search for the next date would start where the last one did), and
# a date a negative distance from its line's start. Each run ends, refused.
printf 'Posting Date,Payee,Amount\n01/31/2024,CORNER,-12.00\n02/01/2024,BAKER,-1250.00\n' \
    >"$tmp/loop.csv"
for marks in '<key>DateStart</key><string></string><key>DateEnd</key><string></string>' \
    '<key>OneTransactionPerLine</key><true/><key>DistanceFromNewline</key><integer>-9223372036854775807</integer>'; do
    { printf '<?xml version="1.0"?>\n<plist version="1.0"><dict><key>Name</key><string>Loop</string>'
        printf '<key>FormatType</key><string>Bank</string><key>Fields</key><string>CSV</string>'
        printf '<key>DateDelimiter</key><string></string><key>Date</key><integer>0</integer>'
        printf '<key>Description</key><integer>1</integer><key>Credit</key><integer>2</integer>'
        printf '%s</dict></plist>\n' "$marks"; } >"$tmp/loop.tvfm"
    run 0 --batch "$tmp/loop.tvfm"
    printf 'keep me\n' >"$tmp/kept.qif"
    run 1 --batch --input-format Loop -o "$tmp/kept.qif" "$tmp/loop.csv"
    said "== Invalid Format ==" "The text cannot be interpreted using the selected format."
    same "$tmp/kept.qif" $'keep me\n'
done

# UTF-16 with a byte-order mark, either order, and UTF-8 with one, convert like plain text.
printf '%s\r\n' '!Type:Bank' 'D1/02/2024' 'T-42.17' 'PCAFÉ CORNER' '^' >"$tmp/plain.qif"
run 0 --batch -o "$tmp/plain-out.qif" "$tmp/plain.qif"
expected=$(cat "$tmp/plain-out.qif")
for encoding in UTF-16LE UTF-16BE UTF-8; do
    { case $encoding in
        UTF-16LE) printf '\xFF\xFE' ;;
        UTF-16BE) printf '\xFE\xFF' ;;
        UTF-8) printf '\xEF\xBB\xBF' ;;
        esac
        iconv -f UTF-8 -t "$encoding" "$tmp/plain.qif"; } >"$tmp/$encoding.qif"
    run 0 --batch -o "$tmp/$encoding-out.qif" "$tmp/$encoding.qif"
    same "$tmp/$encoding-out.qif" "$expected"$'\n'
    said "1 transaction output to file \"$encoding-out.qif\"."
done
echo "hostile input: ok"
