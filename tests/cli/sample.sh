#!/usr/bin/env bash
# The README's main job: the shipped sample statement converted on a first start, printed on
# standard output.
source "$(dirname "$0")/lib/setup.bash" "$1"
sample=$(dirname "$0")/../../examples/checking.ofx

run 0 --batch -o - "$sample"
said "== Tavvel First Run ==" '7 transactions output to file "standard output".'
same "$tmp/out" '!Type:Bank
D11/3/2025
PCORNER GROCERY #12
MWeekly shop
T-42.17
N1041
^
D11/5/2025
PPAYROLL DEPOSIT ACME WIDGETS
T1850.00
^
D11/7/2025
PTRANSFER TO SAVINGS
MOnline banking
T-120.00
NTR88213
^
D11/9/2025
PCITY POWER & LIGHT
MAccount 55-1023
T-63.45
^
D11/14/2025
PBEAN THERE CAFE
T-8.75
^
D11/21/2025
PATM WITHDRAWAL MAIN ST
T-60.00
^
D11/30/2025
PINTEREST PAID
T0.42
^
'
echo "sample: ok"
