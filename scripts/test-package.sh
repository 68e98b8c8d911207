#!/usr/bin/env bash
# Installs the library to a place of its own, finds it from a project outside and runs what that builds:
# scripts/test-package.sh shared|static
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
shared=$([ "$1" = shared ] && echo ON || echo OFF)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake -S "$root" -B "$place/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=$shared \
    -DCMAKE_INSTALL_PREFIX="$place/prefix" -DKIVO_BUILD_TESTS=OFF -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_VIEWER=OFF
cmake --build "$place/build" --target install
cmake -S "$root/KivoFunctionPlotter/tests/consumer" -B "$place/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$place/prefix"
cmake --build "$place/consumer"
env -u DISPLAY "$place/consumer/consumer"
