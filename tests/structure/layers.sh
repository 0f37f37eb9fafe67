#!/usr/bin/env bash
# Includes point down only: each core folder may include itself and the folders listed for it.
# The core includes no Qt and no terminal code.
set -euo pipefail
src=$1/src
declare -A allowed=(
    [prefs]="prefs"
    [recognize]="prefs recognize"
    [context]="prefs recognize context"
    [knowledge]="prefs recognize context knowledge ui"
    [formats]="prefs recognize context knowledge formats ui"
    [bank]="prefs recognize context knowledge formats bank ui"
    [invest]="prefs recognize context knowledge formats bank invest ui"
    [ui]="prefs recognize context knowledge formats bank invest ui"
    [app]="prefs recognize context knowledge formats bank invest ui app"
)
status=0
for folder in "${!allowed[@]}"; do
    [[ -d $src/$folder ]] || continue
    while IFS= read -r line; do
        file=${line%%:*}
        target=$(sed -E 's/.*#include "([^/"]+)\/.*/\1/' <<<"$line")
        if [[ " ${allowed[$folder]} " != *" $target "* ]]; then
            echo "$file includes from $target/, above $folder/"
            status=1
        fi
    done < <(grep -rHE '^#include "[^/"]+/' "$src/$folder" || true)
done
if grep -rlE '#include <(Q[A-Za-z]+|qt|ncurses|curses|readline|termios)' "$src"; then
    echo "the core includes front-end code"
    status=1
fi
[[ $status -eq 0 ]] && echo "layers: ok"
exit $status
