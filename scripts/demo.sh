#!/usr/bin/env bash
# The main job on the shipped sample, with a preference folder of its own (build/demo-config)
# so that the user's own preferences are never touched: a first start, answered with each
# question's first button, then the sample OFX bank statement converted to QIF and printed.
set -euo pipefail
cd "$(dirname "$0")/.."
export XDG_CONFIG_HOME=$PWD/build/demo-config
rm -rf "$XDG_CONFIG_HOME"
build/bin/tavvel-cli --batch -o - examples/checking.ofx
