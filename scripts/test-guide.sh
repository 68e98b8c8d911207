#!/usr/bin/env bash
# What docs/installing.md says and no other test follows to the letter: building with pkg-config. And the sentence for whoever
# takes the library's folder for the checkout of the same name.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

cmake --install "${KIVO_BUILD:-$root/build-release}" --prefix "$place/kivo" --component runtime
cmake --install "${KIVO_BUILD:-$root/build-release}" --prefix "$place/kivo" --component development
libraries=$(dirname "$(find "$place/kivo" -name 'libKivoFunctionPlotter.so')")
sed -n '/^## pkg-config$/,/^## /{/^```sh$/,/^```$/p}' "$root/docs/installing.md" | grep -v '^```' |
    sed "s|/opt/kivo/lib|$libraries|g" >"$place/recipe"
[ -s "$place/recipe" ]
cp "$root/KivoFunctionPlotter/tests/consumer/main.cpp" "$place/program.cpp"
(cd "$place" && bash -euxo pipefail recipe)
version=$(sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' "$root/CMakeLists.txt")
[ "$(env -u LD_LIBRARY_PATH -u DISPLAY -u WAYLAND_DISPLAY "$place/program")" = "$version" ]

if cmake -S "$root/KivoFunctionPlotter" -B "$place/build" >"$place/words" 2>&1; then
    echo "KivoFunctionPlotter/ can be configured alone"
    exit 1
fi
grep -qF "cmake -S \"$root\"" <(tr -s ' \n' ' ' <"$place/words")
if grep -qi 'unknown cmake command' "$place/words"; then exit 1; fi
