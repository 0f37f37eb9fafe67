#!/bin/sh
# The longest time the desktop window goes without turning its event loop while a statement of
# COUNT transactions (default 100,000) is opened, read into the table, scrolled, filtered and
# processed, on a virtual display (needs xvfb and xauth). Preferences go to a folder of their own.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=${BUILD:-$here/../build}
count=${1:-100000}
. "$here/generate.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
generate "$count" sgml > "$work/statement.ofx"
XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" \
    xvfb-run -a "$build/bin/bench_gui_open_gaps" "$work/statement.ofx" "$work/statement.qif"
