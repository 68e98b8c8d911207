#!/usr/bin/env bash
# Draws one scene through X11, off-screen and Windows and compares the pictures. Needs a display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
out=${KIVO_TEST_OUTPUT:-build-test-output}/platforms
mkdir -p "$out"
tests=${KIVO_BUILD:-build-release}/tests
windows=build-mingw/tests/kivo-plotter-tests.exe
[ -e "$windows" ] || exit 77 # there is nothing to compare with
KIVO_SCENE_OUTPUT="$out/linux" "$tests/kivo-plotter-tests" --gtest_filter='*SceneTest*'
KIVO_SCENE_OUTPUT="$out/windows" scripts/with-wine.sh "$windows" --gtest_filter='*SceneTest*'
for other in linux-onscreen windows-offscreen windows-onscreen; do
    "$tests/kivo-compare-pictures" "$out/linux-offscreen.pam" "$out/$other.pam" "$out/$other-difference.pam"
done
