#!/usr/bin/env bash
# Configures and builds into build/ (extra arguments go to cmake's configure step).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DTAVVEL_BENCH=ON "$@" >/dev/null
cmake --build build
