#!/usr/bin/env bash
# Wrong usage exits 2 with a message that names the problem, and changes nothing: no output
# file, and the preference file as it was (even when the problem shows only after the
# statement was read).
source "$(dirname "$0")/lib/setup.bash" "$1"

printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-5.00' 'PSHOP' '^' 'D2/02/2024' 'T-6.00' 'PCAFE' '^' \
    >"$tmp/bank.qif"
printf 'OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><STMTTRN><DTPOSTED>20240102<TRNAMT>-5.00<NAME>SHOP</STMTTRN></BANKMSGSRSV1></OFX>\n' \
    >"$tmp/bank.ofx"

# usage TEXT ARGS...: tavvel-cli exits 2 saying TEXT, writes no output (it runs in an empty
# folder, where the suggested output file would go) and leaves the store.
mkdir "$tmp/cwd"
cd "$tmp/cwd"
usage() {
    local text=$1
    shift
    [ -e "$prefs" ] && cp "$prefs" "$tmp/prefs-before"
    run 2 --batch "$@"
    said "$text"
    [ -z "$(ls -A)" ] || fail "tavvel-cli $* wrote $(ls -A)"
    [ ! -s "$tmp/out" ] || fail "tavvel-cli $* printed on standard output"
    if [ -e "$tmp/prefs-before" ]; then
        cmp -s "$prefs" "$tmp/prefs-before" || fail "tavvel-cli $* changed the preferences"
    fi
}

# Found from the command line alone, before even a first start writes preferences.
usage "--to requires --from" --to 1/1/2024 "$tmp/bank.qif"
usage "--all excludes --from" --all --from 1/1/2024 "$tmp/bank.qif"
usage "--last-month excludes --from" --last-month --from 1/1/2024 "$tmp/bank.qif"
usage 'is not one of Normal, Reverse Signs, Swap Description and Memo, Swap and Reverse Signs' \
    --qif-type Sideways "$tmp/bank.qif"
usage '--ofx-type: "Reverse Signs" is not one of Normal, Swap Description and Memo' \
    --ofx-type "Reverse Signs" "$tmp/bank.ofx"
usage 'tavvel-cli: --from: "yesterday" is not a date; write it as month/day/year (day/month/year for day-first output dates).' \
    --from yesterday "$tmp/bank.qif"
usage '"1/2/03/4" is not a date' --same-date 1/2/03/4 "$tmp/bank.qif"
usage "--same-number needs one line of text" --same-number "" "$tmp/bank.qif"
usage "tavvel-cli: --append needs an output file; standard output cannot be appended to." \
    -o - --append "$tmp/bank.qif"
usage "tavvel-cli: -o needs a file name, or - for standard output." -o "" "$tmp/bank.qif"
usage "tavvel-cli: --learn and --input-format both name the run's input format; give one of them." \
    --learn Mine --input-format Theirs "$tmp/bank.qif"
usage "tavvel-cli: the run options need a statement FILE to convert." --from 1/1/2024
usage "no-such.qif" "$tmp/no-such.qif"
[ ! -e "$prefs" ] || fail "a refused command line wrote preferences"

first_start
usage '--from: "2/30/2024" is not a day written month/day/year' --from 2/30/2024 "$tmp/bank.qif"
usage '--to: "13/1/2024" is not a day written month/day/year' --from 1/1/2024 --to 13/1/2024 \
    "$tmp/bank.qif"
usage '--same-date: "0/5/2024" is not a day written' --same-date 0/5/2024 "$tmp/bank.qif"
usage "the range 2/2/2024 to 2/1/2024 ends before it starts" --from 2/2/24 --to 2/1/24 \
    "$tmp/bank.qif"
usage "--qif-type applies to QIF input only" --qif-type normal "$tmp/bank.ofx"
usage "--ofx-type applies to OFX and QFX input only" --ofx-type normal "$tmp/bank.qif"
usage "tavvel-cli: --learn applies to text statements only." --learn Mine "$tmp/bank.qif"
usage '--output-format: there is no output format called "Spreadsheet" for this statement; the choices are QIF' \
    --output-format Spreadsheet "$tmp/bank.qif"
printf 'older text\n' >"$tmp/older.qif"
run 2 --batch -o "$tmp/older.qif" --append "$tmp/bank.qif"
said "tavvel-cli: --append: QIF output is appended only to a file that begins with \"!Account\", \
while the option append is on (--set append) and an account is known."
same "$tmp/older.qif" $'older text\n'

# The same statement with the options right is converted.
run 0 --batch -o - --from 2/1/24 --to 2/2/24 --qif-type normal "$tmp/bank.qif"
same "$tmp/out" $'!Type:Bank\nD2/2/2024\nPCAFE\nT-6.00\n^\n'
# An account named for an output that names none is said to be of no use, and the run goes on.
run 0 --batch -o - --account Checking --from 2/1/24 --to 2/2/24 "$tmp/bank.qif"
said "tavvel-cli: --account has no use here: this output names no account."
same "$tmp/out" $'!Type:Bank\nD2/2/2024\nPCAFE\nT-6.00\n^\n'
echo "usage: ok"
