#!/usr/bin/env bash
# Whole-program comparison on generated OFX bank statements (SGML and XML forms, a fixed
# seed): tavvel-cli --batch against ofx2qif from Debian's ofx package (only up to 40,000
# transactions: its time grows quadratically) and against wc -l on the same file (the floor:
# reading the bytes). The tools run alternately, RUNS times each (default 5; 3 from 500,000
# transactions on); the script prints median wall times, MB/s, the ratios, each tool's peak
# memory, and the 1,000,000 / 500,000 time ratio of tavvel-cli, which stays near 2 while a
# run is linear.
# The CSV case: a generated bank CSV export of CSV_COUNT transactions (default 100,000; a
# heading, check numbers now and then, quoted payees holding commas, one signed amount column)
# converted by tavvel-cli --batch through examples/csv-export.tvfm (imported first), against
# hledger reading the same file with a rules file for the same columns
# (hledger -f FILE --rules-file RULES print), and wc -l; same table, and the time and peak
# memory ratios to hledger.
#
# Usage: [RUNS=N] [SIZES="10000 40000 ..."] [CASES="ofx csv"] [CSV_COUNT=N]
#        bench/compare_peers.sh [TAVVEL_CLI]   (default build/bin/tavvel-cli)
# The ofx package and GNU time are installed with apt-get when missing (they are not project
# dependencies); hledger is not: the script stops and says how to install it. Statements and
# outputs go to a folder under TMPDIR, removed at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
cli=$(realpath "${1:-build/bin/tavvel-cli}")
runs=${RUNS:-5}
read -r -a sizes <<<"${SIZES:-10000 40000 500000 1000000}"
read -r -a cases <<<"${CASES:-ofx csv}"
csv_count=${CSV_COUNT:-100000}
peer_limit=40000

wants() { [[ " ${cases[*]} " == *" $1 "* ]]; }

install_tools() {
    local missing=()
    if wants csv && ! command -v hledger >/dev/null; then
        echo "hledger is missing: install Debian's hledger (sudo apt-get install hledger), or" \
            "leave the CSV case out with CASES=ofx" >&2
        exit 1
    fi
    wants ofx && ! command -v ofx2qif >/dev/null && missing+=(ofx)
    [ -x /usr/bin/time ] || missing+=(time)
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    echo "Installing: ${missing[*]}" >&2
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# generate COUNT sgml|xml: an OFX bank statement with COUNT transactions on standard output.
# The generator is the minimal-standard linear congruential one, exact in awk's doubles, so
# every awk makes the same statement.
generate() {
    awk -v count="$1" -v form="$2" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    function tag(name, value) {
        if (form == "xml") printf "<%s>%s</%s>\n", name, value, name
        else printf "<%s>%s\n", name, value
    }
    BEGIN {
        seed = 20240101
        split("CORNER GROCERY #12|PAYROLL DEPOSIT ACME WIDGETS|CITY POWER AND LIGHT|" \
              "BEAN THERE CAFE|ATM WITHDRAWAL MAIN ST|TRANSFER TO SAVINGS", payees, "|")
        if (form == "xml") {
            print "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>"
            print "<?OFX OFXHEADER=\"200\" VERSION=\"211\" SECURITY=\"NONE\" OLDFILEUID=\"NONE\" NEWFILEUID=\"NONE\"?>"
        } else {
            printf "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nSECURITY:NONE\nENCODING:USASCII\n"
            printf "CHARSET:1252\nCOMPRESSION:NONE\nOLDFILEUID:NONE\nNEWFILEUID:NONE\n\n"
        }
        print "<OFX>"; print "<SIGNONMSGSRSV1>"; print "<SONRS>"; print "<STATUS>"
        tag("CODE", 0); tag("SEVERITY", "INFO"); print "</STATUS>"
        tag("DTSERVER", "20250101120000"); tag("LANGUAGE", "ENG"); print "</SONRS>"
        print "</SIGNONMSGSRSV1>"; print "<BANKMSGSRSV1>"; print "<STMTTRNRS>"; tag("TRNUID", 1)
        print "<STATUS>"; tag("CODE", 0); tag("SEVERITY", "INFO"); print "</STATUS>"
        print "<STMTRS>"; tag("CURDEF", "USD"); print "<BANKACCTFROM>"; tag("BANKID", "021000000")
        tag("ACCTID", "000123456789"); tag("ACCTTYPE", "CHECKING"); print "</BANKACCTFROM>"
        print "<BANKTRANLIST>"; tag("DTSTART", "20240101"); tag("DTEND", "20241231")
        for (i = 0; i < count; i++) {
            print "<STMTTRN>"
            debit = draw(4) != 0
            tag("TRNTYPE", debit ? "DEBIT" : "CREDIT")
            tag("DTPOSTED", sprintf("2024%02d%02d120000", draw(12) + 1, draw(28) + 1))
            tag("TRNAMT", sprintf("%s%d.%02d", debit ? "-" : "", draw(2000), draw(100)))
            tag("FITID", i)
            if (draw(5) == 0) tag("CHECKNUM", 1000 + i % 9000)
            tag("NAME", payees[draw(6) + 1])
            tag("MEMO", "Card purchase " i % 97)
            print "</STMTTRN>"
        }
        print "</BANKTRANLIST>"; print "<LEDGERBAL>"; tag("BALAMT", "1000.00")
        tag("DTASOF", "20241231"); print "</LEDGERBAL>"; print "</STMTRS>"; print "</STMTTRNRS>"
        print "</BANKMSGSRSV1>"; print "</OFX>"
    }'
}

# timed NAME FILE: one run of the tool on the file; appends "seconds peak-KiB" to its record.
timed() {
    local name=$1 file=$2 start end
    local -a command
    case $name in
    tavvel-cli) command=("$cli" --batch -o "$work/tavvel.qif" "$file") ;;
    ofx2qif) command=(ofx2qif "$file") ;;
    wc) command=(wc -l "$file") ;;
    hledger) command=(hledger -f "$file" --rules-file "$work/bank.rules" print) ;;
    esac
    start=$(date +%s%N)
    /usr/bin/time -f %M -o "$work/peak" "${command[@]}" >"$work/$name.out" 2>/dev/null
    end=$(date +%s%N)
    echo "$(((end - start) / 1000)) $(tail -1 "$work/peak")" >>"$work/$name.times"
}

median_seconds() { sort -n "$work/$1.times" | awk '{t[NR] = $1} END {printf "%.4f", t[int((NR + 1) / 2)] / 1e6}'; }
peak_kib() { sort -n -k2 "$work/$1.times" | tail -1 | awk '{print $2}'; }

# compare COUNT FORM: the tools on one statement, alternately; one line per tool.
compare() {
    local count=$1 form=$2 file="$work/bank-$1.$2.ofx" tools=(tavvel-cli wc) n=$runs
    generate "$count" "$form" >"$file"
    [ "$count" -le "$peer_limit" ] && tools=(tavvel-cli ofx2qif wc)
    [ "$count" -ge 500000 ] && [ "$runs" -gt 3 ] && n=3
    "$cli" --batch -o "$work/tavvel.qif" "$file" 2>/dev/null
    [ "$(grep -c '^\^$' "$work/tavvel.qif")" -eq "$count" ] || {
        echo "tavvel-cli did not convert every transaction of $file" >&2
        exit 1
    }
    measure "$n" "$file" "${tools[@]}"
    report "$count" "$form" "$file" "${tools[@]}"
}

# measure RUNS FILE TOOL...: the tools on the file, alternately, RUNS times each.
measure() {
    local n=$1 file=$2
    shift 2
    rm -f "$work"/*.times
    for ((i = 0; i < n; i++)); do
        for tool in "$@"; do timed "$tool" "$file"; done
    done
}

# report COUNT FORM FILE TOOL...: one table line a tool, and its record in the results.
report() {
    local count=$1 form=$2 file=$3 bytes mb
    shift 3
    bytes=$(stat -c %s "$file")
    mb=$(awk -v b="$bytes" 'BEGIN {printf "%.1f", b / 1048576}')
    for tool in "$@"; do
        local seconds peak
        seconds=$(median_seconds "$tool")
        peak=$(peak_kib "$tool")
        echo "$count $form $mb $tool $seconds $peak $bytes" >>"$work/results"
        awk -v c="$count" -v f="$form" -v mb="$mb" -v tool="$tool" -v s="$seconds" \
            -v peak="$peak" -v bytes="$bytes" 'BEGIN {
            printf "%9d %-4s %8.1f  %-10s %10.3f %9.1f %9.1f %8.2f\n", c, f, mb, tool, s,
                mb / s, peak / 1024, peak * 1024 / bytes }'
    done
}

# generate_csv COUNT: a bank's CSV export with COUNT transactions on standard output, drawn
# as generate draws.
generate_csv() {
    awk -v count="$1" '
    function draw(bound) { seed = (seed * 16807) % 2147483647; return seed % bound }
    BEGIN {
        seed = 20240103
        split("CORNER GROCERY #12|PAYROLL DEPOSIT ACME WIDGETS|CITY POWER AND LIGHT|" \
              "BEAN THERE CAFE|ATM WITHDRAWAL MAIN ST|TRANSFER TO SAVINGS", payees, "|")
        print "Posting Date,Check Number,Description,Amount"
        for (i = 0; i < count; i++) {
            date = sprintf("%02d/%02d/2024", draw(12) + 1, draw(28) + 1)
            check = draw(5) == 0 ? 1000 + i % 9000 : ""
            payee = payees[draw(6) + 1]
            if (i % 7 == 0) payee = "\"" payee ", INC.\""
            printf "%s,%s,%s,%s%d.%02d\n", date, check, payee, draw(4) ? "-" : "", draw(2000),
                draw(100)
        }
    }'
}

# The same columns for both programs: the sample CSV export's input format (the generated
# export has its heading and columns) for tavvel-cli, rules for hledger.
describe_csv() {
    "$cli" --batch examples/csv-export.tvfm </dev/null >/dev/null 2>&1
    cat >"$work/bank.rules" <<'RULES'
skip 1
fields date, code, description, amount
date-format %m/%d/%Y
account1 assets:bank:checking
account2 expenses:unknown
RULES
}

# compare_csv COUNT: tavvel-cli, hledger and wc -l on one CSV export, alternately.
compare_csv() {
    local count=$1 file="$work/bank-$1.csv" tools=(tavvel-cli hledger wc) n=$runs
    [ "$runs" -gt 3 ] && n=3 # hledger takes seconds a run
    generate_csv "$count" >"$file"
    describe_csv
    "$cli" --batch -o "$work/tavvel.qif" "$file" 2>/dev/null
    hledger -f "$file" --rules-file "$work/bank.rules" print >"$work/hledger.out"
    [ "$(grep -c '^\^$' "$work/tavvel.qif")" -eq "$count" ] &&
        [ "$(grep -c '^2024-' "$work/hledger.out")" -eq "$count" ] || {
        echo "tavvel-cli or hledger did not convert every transaction of $file" >&2
        exit 1
    }
    measure "$n" "$file" "${tools[@]}"
    report "$count" csv "$file" "${tools[@]}"
}

ratios() {
    awk '
    { key = $1 " " $2; time[key, $4] = $5; peak[key, $4] = $6
      if (!(key in seen)) { seen[key]; order[++n] = key } }
    END {
        print "\nRatios (median times)"
        for (i = 1; i <= n; i++) {
            k = order[i]
            line = sprintf("%-15s tavvel-cli / wc -l %7.1f", k, time[k, "tavvel-cli"] / time[k, "wc"])
            if ((k, "ofx2qif") in time)
                line = line sprintf("   ofx2qif / tavvel-cli %7.1f", time[k, "ofx2qif"] / time[k, "tavvel-cli"])
            if ((k, "hledger") in time)
                line = line sprintf("   hledger / tavvel-cli: time %7.1f, peak memory %7.1f",
                                    time[k, "hledger"] / time[k, "tavvel-cli"],
                                    peak[k, "hledger"] / peak[k, "tavvel-cli"])
            print line
        }
        for (f = 1; f <= 2; f++) {
            form = f == 1 ? "sgml" : "xml"
            if (("500000 " form, "tavvel-cli") in time && ("1000000 " form, "tavvel-cli") in time)
                printf "tavvel-cli 1,000,000 / 500,000 transactions (%s): time x%.2f\n", form,
                    time["1000000 " form, "tavvel-cli"] / time["500000 " form, "tavvel-cli"]
        }
    }' "$work/results"
}

install_tools
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config
"$cli" --batch </dev/null >/dev/null 2>&1 # the first start, answered before any timing
peers=""
wants ofx && peers+="; ofx2qif: $(dpkg-query -W -f '${Version}' ofx)"
wants csv && peers+="; $(hledger --version | head -1)"
echo "tavvel-cli: $("$cli" --version)$peers; runs: $runs"
printf "%9s %-4s %8s  %-10s %10s %9s %9s %8s\n" transact form MB tool "median s" MB/s \
    "peak MB" "peak/in"
if wants ofx; then
    for count in "${sizes[@]}"; do
        for form in sgml xml; do compare "$count" "$form"; done
    done
fi
wants csv && compare_csv "$csv_count"
ratios
