#!/usr/bin/env bash
# Builds the viewer and starts it: ./run.sh [arguments of the viewer]. Without arguments it shows the sample terrain;
# without a display it draws that into plot.png.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/scripts/packages.sh"

install_packages "${kivo_run_packages[@]}"
build="$root/build-run"
log="$root/build-run.log"
if ! { cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DKIVO_BUILD_TESTS=OFF -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_CONTROLS=OFF && cmake --build "$build"; } >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi

viewer="$build/viewer/kivo-viewer"
draws_picture=no
for argument in "$@"; do
    case $argument in --picture | --picture=* | --help | -h | --version) draws_picture=yes ;; esac
done
if [ -n "${WAYLAND_DISPLAY:-}${DISPLAY:-}" ] || [ "$draws_picture" = yes ]; then
    exec "$viewer" "$@"
fi
"$viewer" "$@" --picture "$PWD/plot.png" --size 1200x800
echo "There is no display; the plot is in $PWD/plot.png"
