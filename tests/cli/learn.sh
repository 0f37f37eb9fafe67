#!/usr/bin/env bash
# Learning an input format in the terminal from three kinds of text statement (comma-separated
# with one signed amount, semicolon-separated with debit and credit columns, a multi-line copy
# of a web page) through piped answers; each converts to the expected QIF, and the stored
# format then picks its statement out by itself. Cancelling stores and writes nothing.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
# The same statements are converted here again and again: none is to be left out as converted
# before.
run 0 --set keepDuplicates

# Text transactions are confirmed one by one: after the learning answers, each takes an "ok".
oks() { printf 'ok\n%.0s' {1..20}; }

# learn NAME STATEMENT ANSWERS: --learn NAME with the answers piped in, output in learned.qif.
learn() {
    rm -f "$tmp/learned.qif"
    { printf '%s\n' "$3"; oks; } | "$cli" --learn "$1" -o "$tmp/learned.qif" "$2" >"$tmp/out" 2>"$tmp/err" ||
        fail "learning $1 failed: $(tail -20 "$tmp/err")"
}

# again STATEMENT EXPECTED: under --batch the stored format fits the statement by itself.
again() {
    run 0 --batch -o "$tmp/again.qif" "$1"
    same "$tmp/again.qif" "$2"
}

printf 'Lakeside Bank\nDate,Description,Amount\n01/05/2024,COFFEE ROASTERS,-4.50\n01/06/2024,"SALARY, ACME CORP",2100.00\n01/08/2024,BOOKSHOP,-12.00\n' >"$tmp/lakeside.csv"
csv_qif='!Type:Bank
D1/5/2024
PCOFFEE ROASTERS
T-4.50
^
D1/6/2024
PSALARY, ACME CORP
T2100.00
^
D1/8/2024
PBOOKSHOP
T-12.00
^
'
# A refused date first: the first date shown starts the text the date form shows.
learn "Lakeside CSV" "$tmp/lakeside.csv" '# the date form
match Lakeside Bank
date 3 01/05/2024
ok
date 4 01/06/2024
ok
layout 6
ok
column 2
ok
ok
ok
ok
yes
yes
column 3
ok
no
ok'
said "== Bad Date ==" "The text you selected starts at the beginning of the input text." \
    "== Create Input Format: Lakeside CSV ==" "== Create Bank Input Format: Lakeside CSV =="
same "$tmp/learned.qif" "$csv_qif"
again "$tmp/lakeside.csv" "$csv_qif"

printf 'Girokonto Umsaetze\nBuchungstag;Empfaenger;Soll;Haben\n02.01.2024;STADTWERKE;45,10;\n03.01.2024;GEHALT ACME;;2.100,00\n05.01.2024;BAECKEREI;3,20;\n' >"$tmp/giro.txt"
giro_qif='!Type:Bank
D1/2/2024
PSTADTWERKE
T-45.10
^
D1/3/2024
PGEHALT ACME
T2100.00
^
D1/5/2024
PBAECKEREI
T-3.20
^
'
# A column already used is refused and another one taken.
learn "Giro" "$tmp/giro.txt" 'match Girokonto Umsaetze
dayfirst yes
date 4 03.01.2024
ok
layout 8
ok
column 2
ok
column 2
ok
none
ok
ok
ok
no
column 4
ok
column 3
ok
no
ok'
said "== Column Already Used ==" 'already used for "Description"'
same "$tmp/learned.qif" "$giro_qif"
again "$tmp/giro.txt" "$giro_qif"

printf 'Harbour Online Banking\nAccount activity\nDate          Description                      Amount\nJan 5, 2024\nCOFFEE ROASTERS\nCard purchase 5512\n                                                -4.50\nJan 6, 2024\nSALARY ACME CORP\nTransfer ref 7731\n                                             2,100.00\nShowing 2 of 2 transactions\n' >"$tmp/web.txt"
web_qif='!Type:Bank
D1/5/2024
PCOFFEE ROASTERS
MCard purchase 5512
T-4.50
^
D1/6/2024
PSALARY ACME CORP
MTransfer ref 7731
T2100.00
^
'
# No stored format fits, so the name is asked for; the answers follow it.
{
    printf '%s\n' 'Harbour Web' 'match Harbour Online Banking' 'date 8 Jan 6, 2024' ok 'layout 3' ok \
        'column 2' ok 'column 3' ok ok ok yes yes 'column 4' ok no ok
    oks
} |
    "$cli" -o "$tmp/web.qif" "$tmp/web.txt" >"$tmp/out" 2>"$tmp/err" ||
    fail "learning from the web page failed: $(tail -20 "$tmp/err")"
same "$tmp/web.qif" "$web_qif"
again "$tmp/web.txt" "$web_qif"

# Cancelled (here: the answers run out): nothing stored, nothing written.
printf 'Other Bank\n01/05/2024 A 1.00\n01/06/2024 B 2.00\n' >"$tmp/other.txt"
printf 'match Other Bank\ndate 3 01/06/2024\nok\n' |
    "$cli" --learn Other -o "$tmp/other.qif" "$tmp/other.txt" >/dev/null 2>"$tmp/err" &&
    fail "a cancelled learning succeeded"
said "no input format was learned, so nothing was written"
[ ! -e "$tmp/other.qif" ] || fail "a cancelled learning wrote output"
[ "$("$cli" --batch --list formats </dev/null)" = "$(printf 'Giro\nHarbour Web\nLakeside CSV')" ] ||
    fail "formats after learning: $("$cli" --batch --list formats </dev/null)"

# Under --batch nothing is learned.
run 1 --batch -o "$tmp/other.qif" "$tmp/other.txt"
said "no stored input format fits this text"
run 2 --batch --learn Other -o "$tmp/other.qif" "$tmp/other.txt"
said "--learn asks questions, so it cannot run under --batch"

# --learn without a statement, with an empty name, or with --input-format as well: wrong usage,
# nothing stored.
cp "$prefs" "$tmp/before"
run 2 --learn Other
said "--learn needs the text statement FILE to learn the input format from"
run 2 --learn "" -o "$tmp/other.qif" "$tmp/other.txt"
said "--learn needs one line of text"
run 2 --learn Other --input-format Giro -o "$tmp/other.qif" "$tmp/other.txt"
said "--learn and --input-format both name the run's input format"
cmp -s "$prefs" "$tmp/before" || fail "a wrong --learn changed the store"
[ ! -e "$tmp/other.qif" ] || fail "a wrong --learn wrote output"

# A format chosen with --input-format is not asked for, even on a terminal: the line waiting on
# standard input is no name for a new format. The text has no heading, so its first date
# opens it.
printf '01/07/2024,TEA,-2.00\n01/08/2024,BUS,-1.50\n' >"$tmp/bare.csv"
{
    printf 'Tea Format\n'
    oks
} |
    "$cli" --input-format "Lakeside CSV" -o "$tmp/bare.qif" "$tmp/bare.csv" >"$tmp/out" 2>"$tmp/err" ||
    fail "--input-format on a terminal failed: $(tail -20 "$tmp/err")"
same "$tmp/bare.qif" $'!Type:Bank\nD1/7/2024\nPTEA\nT-2.00\n^\nD1/8/2024\nPBUS\nT-1.50\n^\n'
"$cli" --batch --list formats </dev/null | grep -qF "Tea Format" && fail "a format was learned"
echo "learn: ok"
