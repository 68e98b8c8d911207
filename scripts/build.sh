#!/usr/bin/env bash
# Configures and builds one preset, all of it or some targets: scripts/build.sh dev|asan|tsan|release|mingw|debian [target]...
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1
shift
cmake --preset "$preset"
cmake --build --preset "$preset" ${1:+--target "$@"}
