#!/usr/bin/env bash
# scripts/check-includes.py refuses what leads out of a layer: scripts/test-includes.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
git ls-files -z --cached --others --exclude-standard -- '*.h' '*.h.in' '*.cpp' |
    while IFS= read -rd '' file; do [ ! -e "$file" ] || printf '%s\0' "$file"; done |
    xargs -0 cp --parents --target-directory "$place"
scripts/check-includes.py "$place"

# refuse <file> <line> <words>: with the line added, the file is refused with these words.
refuse() {
    local kept said
    mkdir -p "$(dirname "$place/$1")"
    [ -e "$place/$1" ] || : >"$place/$1"
    kept=$(cat "$place/$1")
    printf '%s\n' "$2" >>"$place/$1"
    if said=$(scripts/check-includes.py "$place") || ! grep -qF -- "$3" <<<"$said"; then
        echo "$1 may say $2: $said"
        return 1
    fi
    printf '%s\n' "$kept" >"$place/$1"
}
src=KivoFunctionPlotter/src
refuse $src/computing/NiceScale.cpp '#include "drawing/GLScopes.h"' 'not below computing/'
refuse $src/computing/NiceScale.cpp '#include <GL/gl.h>' 'is pure'
refuse $src/parts/KivoGridBox.h '  #  include "KivoFunctionPlotter.h"' 'above parts/'
refuse $src/parts/KivoGridBox.cpp '#include "../computing/NiceScale.h"' 'write it from src/'
refuse $src/window_system/linux/Text.cpp '#include "parts/TextRenderer.h"' 'not below window_system/'
refuse $src/plotter/PlotterCore.cpp '#include "Nowhere.h"' 'is nowhere'
refuse $src/plotter/PlotterCore.cpp '#include HEADER' 'only the preprocessor knows'
refuse KivoFunctionPlotter/include/KivoWindow.h '#include "parts/KivoGridBox.h"' 'in none of'
refuse KivoFunctionPlotter/tests/plotter/TraceTest.cpp '#include "GridReader.h"' 'in none of'
refuse KivoFunctionPlotter/tests/computing/NiceScaleTest.cpp '#include "plotter/PlotterCore.h"' 'no more than that'
refuse examples/x11_host.cpp '#include "GridReader.h"' 'in none of'
refuse viewer/src/main.cpp '#include "parts/KivoGridBox.h"' 'in none of'
refuse $src/elsewhere/New.cpp '' 'a folder that is no layer'
