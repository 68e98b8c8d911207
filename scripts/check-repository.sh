#!/usr/bin/env bash
# Rules of the repository that no compiler checks.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
status=0
complain() {
    echo "$1"
    status=1
}

# Platform code stays in its layer.
found=$(git grep -nE '^ *# *(if|ifdef|ifndef|elif).*(_WIN32|__linux__|__unix__)' -- 'KivoFunctionPlotter/src' \
    ':!KivoFunctionPlotter/src/window_system' ':!KivoFunctionPlotter/src/KivoPlatform.h' \
    ':!KivoFunctionPlotter/src/KivoWindow.h')
[ -z "$found" ] || complain "platform conditions outside the window-system layer:
$found"

# Pure sources know neither OpenGL nor windows.
for pure in AxisLabelLayout ColorSpace MarchingSquares NiceScale SurfacePicker VectorMath; do
    found=$(grep -nE '#include .*(GL/|WindowSystem|KivoPlatform)' KivoFunctionPlotter/src/$pure.h KivoFunctionPlotter/src/$pure.cpp)
    [ -z "$found" ] || complain "not pure: $found"
done

# Every test is built.
for test in KivoFunctionPlotter/tests/*.cpp; do
    grep -q "$(basename "$test")" KivoFunctionPlotter/tests/CMakeLists.txt || complain "not built: $test"
done

# Every source of the library is listed, and every example stays short.
for source in KivoFunctionPlotter/src/*.cpp; do
    grep -q "src/$(basename "$source")" KivoFunctionPlotter/CMakeLists.txt || complain "not built: $source"
done
for example in examples/*.cpp; do
    [ "$(wc -l <"$example")" -lt 150 ] || complain "too long for an example: $example"
done
exit $status
