#!/usr/bin/env bash
# The tests of calls redirect every call of OpenGL, GLU, EGL and the window system that the library makes.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source=$PWD/KivoFunctionPlotter/src
cd "${KIVO_BUILD:-build-release}/KivoFunctionPlotter"
objects=CMakeFiles/KivoFunctionPlotterObjects.dir/src
redirected=$(sed 's/^--wrap=//' tests/kivo-call-tests-redirected-calls.txt | sort -u)

# The operations of the window system are what its header declares.
operations=$(sed -nE 's/^[A-Za-z]+ ([A-Za-z0-9]+)\(.*/\1/p' "$source"/window_system/linux/Win32Names.h)
called=$(
    nm --undefined-only "$objects"/*/*.o "$objects"/window_system/linux/*.o | sed -nE 's/^ +U ((egl|glu?)[A-Z].*)/\1/p'
    for operation in $operations; do
        nm --undefined-only "$objects"/*/*.o | sed -nE "s/^ +U (_ZN16KivoDrawingTools${#operation}${operation}E.*)/\1/p"
    done
)
[ -n "$called" ] || exit 1
missing=$(comm -23 <(sort -u <<<"$called") <(echo "$redirected"))
[ -z "$missing" ] || echo "not redirected: $missing"
[ -z "$missing" ]
