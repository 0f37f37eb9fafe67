#!/usr/bin/env bash
# Learning from a CSV export whose dates are eight digits, year, month and day (20240229),
# through piped answers, then reading it again from the store and from an exported .tvfm in a
# fresh store. A reference of eight digits that makes a real date, another that does not, and
# a heading with a date-like account number start no transaction.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start

printf '%s\n' 'Account 19991231 statement' 'Date,Payee,Reference,Amount' \
    '20240105,COFFEE ROASTERS,12345678901,-4.50' '20240229,SALARY ACME,20201399,"2,100.00"' \
    '20240308,CORNER CAFE,20240309,-6.25' >"$tmp/digits.csv"
want='!Type:Bank
D1/5/2024
PCOFFEE ROASTERS
T-4.50
N12345678901
^
D2/29/2024
PSALARY ACME
T2100.00
N20201399
^
D3/8/2024
PCORNER CAFE
T-6.25
N20240309
^
'
{ printf '%s\n' 'match Date,Payee' 'date 4 20240229' ok 'layout 6' ok 'column 2' ok ok 'column 3' ok ok \
      yes yes 'column 4' ok no ok; printf 'ok\n%.0s' {1..5}; } |
    "$cli" --learn Digits -o "$tmp/learned.qif" "$tmp/digits.csv" >"$tmp/out" 2>"$tmp/err" ||
    fail "learning failed: $(tail -20 "$tmp/err")"
same "$tmp/learned.qif" "$want"

run 0 --batch --input-format Digits -o "$tmp/again.qif" "$tmp/digits.csv"
same "$tmp/again.qif" "$want"

run 0 --batch --export-format Digits "$tmp/digits.tvfm"
rm -rf "$XDG_CONFIG_HOME"
first_start
run 0 --batch "$tmp/digits.tvfm"
run 0 --batch -o "$tmp/imported.qif" "$tmp/digits.csv"
same "$tmp/imported.qif" "$want"
echo "learn_eight_digit_dates: ok"
