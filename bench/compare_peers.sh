#!/usr/bin/env bash
# Whole-program comparison on generated statements (a fixed seed), each tool run alternately
# RUNS times (default 5; 3 from 500,000 transactions on); the script prints median wall times,
# MB/s, each tool's peak memory against the input's size, and the ratios between the tools.
#
# Cases (CASES, default "ofx card qif csv"):
#   ofx   OFX bank statements, SGML and XML, at SIZES transactions: tavvel-cli --batch against
#         ofx2qif from Debian's ofx package (only up to 40,000 transactions: its time grows
#         quadratically), a ten-line awk script that writes QIF by searching for tags, and
#         wc -l (the floor: reading the bytes). Also the 1,000,000 / 500,000 time ratio of
#         tavvel-cli, which stays near 2 while a run is linear.
#   card  OFX credit card statements (SGML) at SIZES: tavvel-cli, the awk script and wc -l.
#   qif   a bank QIF file of QIF_COUNT transactions (default 100,000): tavvel-cli against
#         Finance::QIF (Debian's libfinance-qif-perl) reading and writing every record, and wc.
#   csv   a bank CSV export of CSV_COUNT transactions (default 100,000; a heading, check
#         numbers now and then, quoted payees holding commas, one signed amount column)
#         converted through examples/csv-export.tvfm (imported first), against hledger reading
#         it with a rules file for the same columns, and wc -l.
#
# Usage: [RUNS=N] [SIZES="10000 40000 ..."] [CASES="ofx card qif csv"] [QIF_COUNT=N]
#        [CSV_COUNT=N] bench/compare_peers.sh [TAVVEL_CLI]   (default build/bin/tavvel-cli)
# The peers and GNU time are installed with apt-get when missing (they are not project
# dependencies). Statements and outputs go to a folder under TMPDIR, removed at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
cli=$(realpath "${1:-build/bin/tavvel-cli}")
runs=${RUNS:-5}
read -r -a sizes <<<"${SIZES:-10000 40000 500000 1000000}"
read -r -a cases <<<"${CASES:-ofx card qif csv}"
csv_count=${CSV_COUNT:-100000}
qif_count=${QIF_COUNT:-100000}
peer_limit=40000
# shellcheck source=bench/generate.sh
source bench/generate.sh

wants() { [[ " ${cases[*]} " == *" $1 "* ]]; }

install_tools() {
    local missing=()
    wants csv && ! command -v hledger >/dev/null && missing+=(hledger)
    wants qif && ! perl -MFinance::QIF -e 1 2>/dev/null && missing+=(libfinance-qif-perl)
    wants ofx && ! command -v ofx2qif >/dev/null && missing+=(ofx)
    [ -x /usr/bin/time ] || missing+=(time)
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    echo "Installing: ${missing[*]}" >&2
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
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
    awk) command=(awk -f "$work/ofx2qif.awk" "$file") ;;
    finance-qif) command=(perl "$work/finance-qif.pl" "$file" "$work/finance-qif.qif") ;;
    esac
    rm -rf "$XDG_DATA_HOME" # each run converts afresh, its transactions no duplicates
    start=$(date +%s%N)
    /usr/bin/time -f %M -o "$work/peak" "${command[@]}" >"$work/$name.out" 2>/dev/null
    end=$(date +%s%N)
    echo "$(((end - start) / 1000)) $(tail -1 "$work/peak")" >>"$work/$name.times"
}

median_seconds() { sort -n "$work/$1.times" | awk '{t[NR] = $1} END {printf "%.4f", t[int((NR + 1) / 2)] / 1e6}'; }
peak_kib() { sort -n -k2 "$work/$1.times" | tail -1 | awk '{print $2}'; }

# compare COUNT FORM [card]: the tools on one OFX statement, alternately; one line per tool.
# A card statement is labelled "card" in the table.
compare() {
    local count=$1 form=$2 kind=${3:-bank} tools=(tavvel-cli awk wc) n=$runs label=$2
    local file="$work/$kind-$count.$form.ofx"
    [ "$kind" = card ] && label=card
    generate "$count" "$form" "$kind" >"$file"
    [ "$kind" = bank ] && [ "$count" -le "$peer_limit" ] && tools=(tavvel-cli ofx2qif awk wc)
    [ "$count" -ge 500000 ] && [ "$runs" -gt 3 ] && n=3
    rm -rf "$XDG_DATA_HOME"
    "$cli" --batch -o "$work/tavvel.qif" "$file" 2>/dev/null
    [ "$(grep -c '^\^$' "$work/tavvel.qif")" -eq "$count" ] || {
        echo "tavvel-cli did not convert every transaction of $file" >&2
        exit 1
    }
    measure "$n" "$file" "${tools[@]}"
    report "$count" "$label" "$file" "${tools[@]}"
}

# The awk peer: OFX to QIF by searching each line for the tags of a transaction, SGML or XML.
write_awk_peer() {
    cat >"$work/ofx2qif.awk" <<'AWK'
BEGIN { print "!Type:Bank" }
{ sub(/\r$/, ""); sub(/<\/[A-Z0-9.]+>$/, "") }
/<DTPOSTED>/ { d = substr($0, index($0, ">") + 1); printf "D%s/%s/%s\n", substr(d, 5, 2), substr(d, 7, 2), substr(d, 1, 4) }
/<TRNAMT>/   { print "T" substr($0, index($0, ">") + 1) }
/<CHECKNUM>/ { print "N" substr($0, index($0, ">") + 1) }
/<NAME>/     { print "P" substr($0, index($0, ">") + 1) }
/<MEMO>/     { print "M" substr($0, index($0, ">") + 1) }
/<\/STMTTRN>/ { print "^" }
AWK
}

# The Finance::QIF peer: every record read, and written to a new file.
write_perl_peer() {
    cat >"$work/finance-qif.pl" <<'PERL'
use strict;
use warnings;
use Finance::QIF;
my $in = Finance::QIF->new(file => $ARGV[0]);
my $out = Finance::QIF->new(file => ">" . $ARGV[1]);
$out->header("Type:Bank");
while (my $record = $in->next) { $out->write($record) }
$out->close;
PERL
}

# compare_qif COUNT: tavvel-cli, Finance::QIF and wc -l on one bank QIF file, alternately.
compare_qif() {
    local count=$1 file="$work/bank-$1.qif" tools=(tavvel-cli finance-qif wc) n=$runs
    generate_qif "$count" >"$file"
    rm -rf "$XDG_DATA_HOME"
    "$cli" --batch -o "$work/tavvel.qif" "$file" 2>/dev/null
    perl "$work/finance-qif.pl" "$file" "$work/finance-qif.qif"
    [ "$(grep -c '^\^$' "$work/tavvel.qif")" -eq "$count" ] &&
        [ "$(grep -c '^\^' "$work/finance-qif.qif")" -eq "$count" ] || {
        echo "tavvel-cli or Finance::QIF did not convert every transaction of $file" >&2
        exit 1
    }
    measure "$n" "$file" "${tools[@]}"
    report "$count" qif "$file" "${tools[@]}"
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
            printf "%9d %-4s %8.1f  %-12s %10.3f %9.1f %9.1f %8.2f\n", c, f, mb, tool, s,
                mb / s, peak / 1024, peak * 1024 / bytes }'
    done
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
    rm -rf "$XDG_DATA_HOME"
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
            if ((k, "awk") in time)
                line = line sprintf("   awk / tavvel-cli %7.1f", time[k, "awk"] / time[k, "tavvel-cli"])
            if ((k, "finance-qif") in time)
                line = line sprintf("   Finance::QIF / tavvel-cli %7.1f",
                                    time[k, "finance-qif"] / time[k, "tavvel-cli"])
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
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
"$cli" --batch </dev/null >/dev/null 2>&1 # the first start, answered before any timing
peers=""
wants ofx && peers+="; ofx2qif: $(dpkg-query -W -f '${Version}' ofx)"
wants csv && peers+="; $(hledger --version | head -1)"
wants qif && peers+="; Finance::QIF $(perl -MFinance::QIF -e 'print $Finance::QIF::VERSION')"
write_awk_peer
write_perl_peer
echo "tavvel-cli: $("$cli" --version)$peers; runs: $runs"
printf "%9s %-4s %8s  %-12s %10s %9s %9s %8s\n" transact form MB tool "median s" MB/s \
    "peak MB" "peak/in"
for count in "${sizes[@]}"; do
    if wants ofx; then
        for form in sgml xml; do compare "$count" "$form"; done
    fi
    wants card && compare "$count" sgml card
done
wants qif && compare_qif "$qif_count"
wants csv && compare_csv "$csv_count"
ratios
