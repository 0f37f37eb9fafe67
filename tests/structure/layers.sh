#!/usr/bin/env bash
# The core's folders form one stack, lowest first. A folder includes itself and folders below
# it, never one above: that also rules out any cycle between two folders. A core folder missing
# from the stack fails, so a new folder has to be given its place. The core includes no Qt and
# no terminal code, and the front ends include only the core's headers, never its sources.
set -euo pipefail
root=$1
src=$root/src
stack=(prefs recognize context dialogs knowledge history formats forms bank invest app)

declare -A rank=()
for i in "${!stack[@]}"; do rank[${stack[$i]}]=$i; done

status=0
for dir in "$src"/*/; do
    folder=$(basename "$dir")
    if [[ -z ${rank[$folder]+set} ]]; then
        echo "src/$folder/ has no place in the stack of tests/structure/layers.sh"
        status=1
    fi
done

for folder in "${stack[@]}"; do
    [[ -d $src/$folder ]] || continue
    while IFS= read -r line; do
        file=${line%%:*}
        target=$(sed -E 's/.*#include "([^/"]+)\/.*/\1/' <<<"$line")
        if [[ -z ${rank[$target]+set} ]]; then
            echo "$file includes from $target/, which is not a core folder"
            status=1
        elif ((rank[$target] > rank[$folder])); then
            echo "$file includes from $target/, above $folder/"
            status=1
        fi
    done < <(grep -rHE '^#include "[^/"]+/' "$src/$folder" || true)
done

if grep -rlE '#include <(Q[A-Za-z]+|qt|ncurses|curses|readline|termios)' "$src"; then
    echo "the core includes front-end code"
    status=1
fi
if grep -rnE '^#include "[a-z]+/[A-Za-z]+\.cpp"' "$root/gui" "$root/cli"; then
    echo "a front end includes a core source file"
    status=1
fi
[[ $status -eq 0 ]] && echo "layers: ok"
exit $status
