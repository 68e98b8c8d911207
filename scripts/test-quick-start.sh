#!/usr/bin/env bash
# Follows docs/quick-start.md with the builds that are there: installs the library, builds the project of
# examples/quick_start with it, and runs that until its window shows the plot: scripts/test-quick-start.sh linux|windows
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

# build <build of the library> [options of CMake]...
build() {
    cmake --install "$root/$1" --prefix "$place/library"
    cmake -S "$root/examples/quick_start" -B "$place/build" -G Ninja -DCMAKE_PREFIX_PATH="$place/library" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror" "${@:2}"
    cmake --build "$place/build"
}

if [ "$1" = windows ]; then
    build build-mingw -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
        -DKivoFunctionPlotter_DIR="$place/library/lib/cmake/KivoFunctionPlotter"
    cp "$place"/library/bin/*.dll "$place/build"
    "$root/scripts/with-wine.sh" cmd /c exit # makes its Windows, where there is none yet
    "$root/scripts/until-plot-shows.sh" "$root/scripts/with-wine.sh" "$place/build/quick_start.exe"
else
    lines=$(awk '/\[docs: end\]/ { print NR - first } /\[docs: host\]/ { first = NR + 1 }' "$root/examples/quick_start/linux.cpp")
    [ "$lines" -le 30 ] || { echo "the host has $lines lines"; exit 1; }
    build "$(realpath --relative-to="$root" "${KIVO_BUILD:-$root/build-release}")"
    "$root/scripts/until-plot-shows.sh" "$place/build/quick_start"
fi
