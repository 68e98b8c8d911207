#!/usr/bin/env bash
# Runs the tests that need no window under Valgrind's memcheck: scripts/test-valgrind.sh [--all]
# Without --all the few that take minutes there are left out. Errors and lost memory make it fail.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# The renderer's generated code is beyond memcheck: tests that draw run under the sanitizers.
# A timed test would tell nothing either.
omitted='AxisLabelLayout.AHundredThousandTicksAreQuick:Windows/*:Kinds/*:BadNumbers.*:X11*:TraceHost.*:OffscreenWindow.*:Lifecycle.DataSetBeforeOnCreateAreDrawnAfterIt'
omitted+=':MotionWithoutWindow.*:PixelScale.*:Style.*:Ink.*:TextFace.*:Density.TakenOver*:HostContextOfNoWindow.*'
if [ "${1:-}" != --all ]; then
    omitted+=':AxisLabelLayoutSweep.*:LevelLines.MoreLevelsThanOneWalkTakesAreTracedToo:PickSurface.PassesOverNearlyAllCells'
    omitted+=':Colors.BetweenPureAndOtherColorsAreThoseOfSingleValues'
    omitted+=':PickSurface.FindsWhatAPlainWalkFinds*:PickSurface.FindsTheNearestTriangleOnRandomLines'
fi
unset DISPLAY WAYLAND_DISPLAY
check() {
    valgrind --quiet --error-exitcode=1 --leak-check=full --show-leak-kinds=definite,indirect \
        --errors-for-leak-kinds=definite,indirect --suppressions=KivoFunctionPlotter/tests/support/valgrind.supp \
        "$1" --gtest_filter="-$omitted"
}
tests=${KIVO_BUILD:-build-release}/tests
check "$tests/kivo-computing-tests"
check "$tests/kivo-plotter-tests"
