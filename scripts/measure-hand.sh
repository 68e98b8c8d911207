#!/usr/bin/env bash
# Measures how long the viewer takes from an event of the pointer to the picture on the screen: scripts/measure-hand.sh [POINTS]
# It shows a surface of POINTS x POINTS points, 2000 without, on a display without a screen. The machine should do nothing else.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/build.sh test kivo-viewer-hand >&2
KIVO_HAND_POINTS=${1:-2000} scripts/with-display.sh build-test/tests/kivo-viewer-hand
