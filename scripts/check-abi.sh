#!/usr/bin/env bash
# Compares the binary interface of the optimised shared library with the recorded one; with --update records it.
#   scripts/check-abi.sh [--update]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=KivoFunctionPlotter/abi
record=$folder/$(g++ -dumpmachine).abi
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

# The builds for packages and for tests are optimised and have debug information.
build=${KIVO_BUILD:-build-debian}
[ -n "${KIVO_BUILD:-}" ] || scripts/build.sh debian KivoFunctionPlotter
cmake --install "$build" --prefix "$place" --component development
abidw --exported-interfaces-only --drop-private-types --drop-undefined-syms --headers-dir "$place/include" \
    --suppressions "$folder/inside.suppr" --type-id-style hash --no-corpus-path --no-comp-dir-path --no-show-locs \
    --no-elf-needed --no-parameter-names --out-file "$place/now.abi" "$build"/KivoFunctionPlotter/libKivoFunctionPlotter.so
grep -q "class-decl name='CKivoFunctionPlotter' size-in-bits=" "$place/now.abi" # else the debug information is missing

if [ "${1:-}" = --update ]; then
    cp "$place/now.abi" "$record"
elif [ ! -e "$record" ]; then
    echo "no binary interface is recorded for $(g++ -dumpmachine)"
    exit 1
elif ! abidiff "$record" "$place/now.abi"; then
    echo "The binary interface has changed: programs built before may not run with this library. Before a release with the"
    echo "same name (SOVERSION), undo that; else raise the version and run scripts/check-abi.sh --update."
    exit 1
fi
