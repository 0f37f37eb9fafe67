#!/usr/bin/env bash
# Runs the whole test suite of the build in build/.
set -euo pipefail
cd "$(dirname "$0")/.."
ctest --test-dir build --output-on-failure -j"$(nproc)"
