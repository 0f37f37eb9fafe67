#!/usr/bin/env bash
# Installs the Debian packages Tavvel needs to build and test. Quiet when all are present.
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config
    libplist-dev libicu-dev libcli11-dev libsqlite3-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    clang libclang-rt-14-dev
    qt6-base-dev xvfb xauth
)

missing=()
for p in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
    [[ $status == "install ok installed" ]] || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

sudo=()
[[ $(id -u) -eq 0 ]] || sudo=(sudo)
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
