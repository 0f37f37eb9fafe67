#!/usr/bin/env bash
# --continue-from-last converts from the day after the last run's range ended to today, also
# when that run wrote to standard output; it takes no other range.
source "$(dirname "$0")/lib/setup.bash" "$1"
first_start
printf '%s\n' '!Type:Bank' 'D1/02/2024' 'T-1.00' 'PONE' '^' 'D1/03/2024' 'T-2.00' 'PTWO' '^' \
    'D1/04/2024' 'T-3.00' 'PTHREE' '^' >"$tmp/bank.qif"
run 0 --batch -o - --from 1/1/2024 --to 1/2/2024 "$tmp/bank.qif"
same "$tmp/out" $'!Type:Bank\nD1/2/2024\nPONE\nT-1.00\n^\n'
run 0 --batch -o - --continue-from-last "$tmp/bank.qif"
same "$tmp/out" $'!Type:Bank\nD1/3/2024\nPTWO\nT-2.00\n^\nD1/4/2024\nPTHREE\nT-3.00\n^\n'
run 2 --batch --continue-from-last --from 1/1/2024 "$tmp/bank.qif"
said "--from excludes --continue-from-last"
echo "continue_from_last: ok"
