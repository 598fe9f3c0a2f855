#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running the demo
# need, non-interactively and only when one of them is missing.
set -euo pipefail

packages=(
    cmake make g++ pkg-config
    g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
    wine wine64 fonts-wine xvfb xauth
    googletest libbenchmark-dev
    clang libclang-rt-14-dev
    libimage-exiftool-perl
    python3
)

missing=()
for p in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "bootstrap: installing ${missing[*]}"
SUDO=
[ "$(id -u)" -eq 0 ] || SUDO=sudo
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
echo "bootstrap: done"
