#!/usr/bin/env bash
# Learning from bank exports with every field in double quotes, through piped answers: a CSV
# with a heading and CR LF line ends, and a semicolon export without a heading whose last line
# has no line end. The date that starts a transaction opens a quoted field; the layout form
# offers the right layout by itself; empty quoted fields are empty; the learned format reads
# the statement again under --batch. The sample tables keep their columns straight when cells
# hold characters of several bytes, and a cut cell ends on a whole character.
source "$(dirname "$0")/lib/setup.bash" "$1"
export LC_ALL=C.UTF-8
first_start

oks() { printf 'ok\n%.0s' {1..20}; }

# learn NAME STATEMENT ANSWERS: --learn NAME with the answers piped in, output in learned.qif.
learn() {
    rm -f "$tmp/learned.qif"
    { printf '%s\n' "$3"; oks; } | "$cli" --learn "$1" -o "$tmp/learned.qif" "$2" >"$tmp/out" 2>"$tmp/err" ||
        fail "learning $1 failed: $(tail -20 "$tmp/err")"
}

again() {
    run 0 --batch --input-format "$1" -o "$tmp/again.qif" "$2"
    same "$tmp/again.qif" "$3"
}

# bars LINE: the places, in characters, of the bars between the table's columns.
bars() {
    local line=$1 i out=
    for ((i = 0; i < ${#line}; i++)); do
        [ "${line:i:1}" != "|" ] || out+="$i "
    done
    printf '%s\n' "$out"
}

printf '"Date","Payee","Memo","Amount"\r\n"01/05/2024","CAFÉ — MARCHÉ € SAINT-ÉTIENNE","","-4.50"\r\n"01/06/2024","SALARY, ACME ""CORP""","January","2,100.00"\r\n"01/08/2024","CORNER CAFE, DOWNTOWN","","-6.25"\r\n' >"$tmp/quoted.csv"
quoted_qif='!Type:Bank
D1/5/2024
PCAFÉ — MARCHÉ € SAINT-ÉTIENNE
T-4.50
^
D1/6/2024
PSALARY, ACME "CORP"
MJanuary
T2100.00
^
D1/8/2024
PCORNER CAFE, DOWNTOWN
T-6.25
^
'
learn "Quoted CSV" "$tmp/quoted.csv" 'match "Date","Payee"
date 3 01/06/2024
ok
ok
column 2
ok
column 3
ok
ok
ok
yes
yes
column 4
ok
no
ok'
said " *6) "
same "$tmp/learned.qif" "$quoted_qif"

# The sample tables: every row's bars stand where the numbers row has them.
iconv -f UTF-8 -t UTF-8 "$tmp/err" >/dev/null || fail "the tables cut a character in two"
said "| CAFÉ — MARCHÉ € SAINT-É~ |"
mapfile -t rows < <(grep -E '^ {4}[0-9] \|| {6}\|' "$tmp/err" | grep -v '⬇')
[ "${#rows[@]}" -ge 4 ] || fail "no table printed: $(cat "$tmp/err")"
want=$(bars "${rows[0]}")
for row in "${rows[@]}"; do
    [ "$(bars "$row")" = "$want" ] || fail "a row out of line: '$row' against '${rows[0]}'"
done
again "Quoted CSV" "$tmp/quoted.csv" "$quoted_qif"

printf '"02.01.2024";"STADTWERKE; ABSCHLAG";"45,10";""\n"03.01.2024";"GEHALT ""ACME""";"";"2.100,00"\n"05.01.2024";"BAECKEREI";"3,20";""' >"$tmp/giro.csv"
giro_qif='!Type:Bank
D1/2/2024
PSTADTWERKE; ABSCHLAG
T-45.10
^
D1/3/2024
PGEHALT "ACME"
T2100.00
^
D1/5/2024
PBAECKEREI
T-3.20
^
'
learn "Quoted SSV" "$tmp/giro.csv" 'match STADTWERKE
dayfirst yes
date 1 02.01.2024
ok
ok
column 2
ok
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
said " *8) "
same "$tmp/learned.qif" "$giro_qif"
again "Quoted SSV" "$tmp/giro.csv" "$giro_qif"
echo "learn_quoted: ok"
