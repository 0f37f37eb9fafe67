#!/usr/bin/env bash
# The main job on the shipped sample, with a preference folder (build/demo-config) and a
# conversion history (build/demo-data) of its own, so that the user's own are never touched and
# every demo starts afresh: a first start, answered with each question's first button, then the
# sample OFX bank statement converted to QIF and printed.
set -euo pipefail
cd "$(dirname "$0")/.."
export XDG_CONFIG_HOME=$PWD/build/demo-config
export XDG_DATA_HOME=$PWD/build/demo-data
rm -rf "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
build/bin/tavvel-cli --batch -o - examples/checking.ofx
