#!/usr/bin/env bash
# Saves PNG pictures of the desktop application's windows into docs/screenshots/, at the
# default font size and at 1.5 times it, drawn on a virtual X display (Xvfb).
#   scripts/screenshots.sh [BUILD-FOLDER]   (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
program=$build/bin/tavvel-screenshots
[[ -x $program ]] || cmake --build "$build" --target tavvel-screenshots
command -v xvfb-run >/dev/null || { echo "screenshots.sh: xvfb-run is missing (apt-get install xvfb xauth)" >&2; exit 1; }

out=docs/screenshots
mkdir -p "$out"
for scale in 1 1.5; do
    suffix=$([[ $scale == 1 ]] && echo "" || echo "@1.5x")
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1200x24" \
        "$program" examples/checking.ofx "$out" "$scale" "$suffix" examples/web-page.txt
done
ls "$out"
