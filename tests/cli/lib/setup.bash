# Shared by the whole-program tests (sourced with the tavvel-cli path as its argument): a
# private configuration and home folder that is removed at exit, and small checks.
set -euo pipefail
cli=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
export XDG_CONFIG_HOME=$tmp/config HOME=$tmp/home
mkdir -p "$HOME"
# A system that writes dates month first, whatever the machine's: a QIF file whose dates read
# either way is asked about only on a day-first system.
unset LC_ALL
export LC_TIME=C
prefs=$XDG_CONFIG_HOME/Tavvel/TavvelMain.prefs
fail() { echo "FAIL: $*" >&2; exit 1; }

# first_start: the first start under --batch ("Just Convert", so input categories are kept).
first_start() { "$cli" --batch </dev/null 2>/dev/null; }

# run STATUS ARGS...: tavvel-cli with nothing on standard input, standard output in $tmp/out and
# standard error in $tmp/err; fails unless it exits with STATUS.
run() {
    local want=$1 got=0
    shift
    "$cli" "$@" </dev/null >"$tmp/out" 2>"$tmp/err" || got=$?
    [ "$got" -eq "$want" ] || fail "tavvel-cli $* exited $got, not $want: $(cat "$tmp/err")"
}

# said TEXT...: standard error of the last run holds each text.
said() {
    local text
    for text in "$@"; do
        grep -qF -- "$text" "$tmp/err" || fail "standard error lacks '$text': $(cat "$tmp/err")"
    done
}

# said_whole TEXT: standard error of the last run holds the text whole, "\r" in it standing for
# a line break (as the program's messages write them).
said_whole() {
    local text=${1//\\r/$'\n'}
    [[ $(<"$tmp/err") == *"$text"* ]] || fail "standard error lacks '$text': $(cat "$tmp/err")"
}

# same FILE EXPECTED_TEXT: the file holds exactly the text.
same() {
    [ -f "$1" ] || fail "no file $1"
    diff -u <(printf '%s' "$2") "$1" >&2 || fail "$1 differs"
}
