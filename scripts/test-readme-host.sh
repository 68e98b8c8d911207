#!/usr/bin/env bash
# Builds the host that README.md prints, as printed, and runs it for a moment in a window.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
awk '/^```cpp/ { inside = 1; next } /^```/ { if (inside) exit } inside' "$root/README.md" >"$place/host.cpp"
lines=$(wc -l <"$place/host.cpp")
if [ "$lines" -lt 10 ] || [ "$lines" -gt 30 ]; then
    echo "the host in README.md has $lines lines"
    exit 1
fi
library=$root/build-release/KivoFunctionPlotter
g++ -std=c++17 -Wall -Wextra -Werror "$place/host.cpp" -o "$place/host" -I"$root/KivoFunctionPlotter/src" \
    -L"$library" -Wl,-rpath,"$library" -lKivoFunctionPlotter -lX11
status=0
"$root/scripts/with-display.sh" timeout --signal=TERM 3 "$place/host" || status=$?
[ "$status" -eq 124 ] # it ran until it was told to stop
