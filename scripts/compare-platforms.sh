#!/usr/bin/env bash
# Draws one scene through X11, off-screen and Windows and compares the pictures. Needs a display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
out=${KIVO_TEST_OUTPUT:-build-test-output}/platforms
mkdir -p "$out"
tests=build-release/tests
KIVO_SCENE_OUTPUT="$out/offscreen.pam" env -u DISPLAY "$tests/kivo-tests" --gtest_filter='*SceneTest*'
KIVO_SCENE_OUTPUT="$out/x11.pam" "$tests/kivo-tests" --gtest_filter='*X11*SceneTest*:*SceneTest*X11*'
KIVO_SCENE_OUTPUT="$out/windows.pam" scripts/with-wine.sh build-mingw/tests/kivo-tests.exe --gtest_filter='*SceneTest*'
"$tests/kivo-compare-pictures" "$out/offscreen.pam" "$out/x11.pam" "$out/x11-difference.pam"
"$tests/kivo-compare-pictures" "$out/offscreen.pam" "$out/windows.pam" "$out/windows-difference.pam"
