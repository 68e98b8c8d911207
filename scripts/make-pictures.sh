#!/usr/bin/env bash
# Draws every picture of README.md and docs/ anew: scripts/make-pictures.sh [--check]
# With --check the pictures are drawn into a folder of their own and compared with those that are there; the viewer's
# windows, which look as the desktop has them, only need to come out. Those of docs/python.md are compared, and drawn, by
# scripts/test-python.sh. docs/pictures/growth.svg is a result of
# KivoFunctionPlotter/benchmarks/compare.sh.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
pictures=docs/pictures
build=${KIVO_BUILD:-build-release}
if [ "${1:-}" = --check ]; then
    pictures=${KIVO_TEST_OUTPUT:-build-test-output}/pictures
    rm -rf "$pictures"
else
    . scripts/packages.sh
    install_packages "${kivo_run_packages[@]}" "${kivo_test_packages[@]}"
    cmake --preset release
    cmake --build "$build" --target terrain_gallery averages_picture feature_pictures kivo-viewer-pictures
fi
mkdir -p "$pictures/features" "$pictures/viewer"

unset WAYLAND_DISPLAY
env -u DISPLAY "$build"/docs/picture_makers/terrain_gallery viewer/samples/terrain.asc "$pictures"
env -u DISPLAY "$build"/docs/picture_makers/averages_picture "$pictures/averages.png"
env -u DISPLAY "$build"/examples/feature_pictures "$pictures/features"
steps=$(mktemp -d) # the program keeps a picture of each step, too
trap 'rm -rf "$steps"' EXIT
KIVO_TEST_OUTPUT=$steps scripts/with-display.sh "$build"/tests/kivo-viewer-pictures
for name in window flat-plot points surfaces read-as japanese keys; do
    cp "$steps/$name.png" "$pictures/viewer/$name.png"
done
[ "${1:-}" = --check ] || exit 0

status=0
diff <(cd docs/pictures && find . -name '*.png' -not -path './python/*' | sort) <(cd "$pictures" && find . -name '*.png' | sort) || status=1
for drawn in "$pictures"/*.png "$pictures"/features/*.png; do
    "$build"/tests/kivo-compare-pictures "docs/pictures/${drawn#"$pictures/"}" "$drawn" "${drawn%.png}.pam" || status=1
done
[ $status -eq 0 ] || echo "run scripts/make-pictures.sh and look at the pictures that change"
exit $status
