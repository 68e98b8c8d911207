#!/usr/bin/env bash
# Configures and builds one preset: scripts/build.sh dev|asan|release|mingw|debian
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset "$1"
cmake --build --preset "$1"
