#!/usr/bin/env bash
# Measures how long it takes from an event of the pointer to the picture on the screen, in the control for Qt and in a native
# window, and what memory a plot takes: scripts/measure-controls.sh. On a display without a screen; the machine should do
# nothing else.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/build.sh test kivo-control-times >&2
scripts/with-display.sh build-test/tests/kivo-control-times
