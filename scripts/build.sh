#!/usr/bin/env bash
# Configures and builds into build/ (extra arguments go to cmake's configure step).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset default "$@" >/dev/null
cmake --build --preset default
