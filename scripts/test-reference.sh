#!/usr/bin/env bash
# Every public and protected name of the installed headers has a comment, which names the parameters that there are, and the
# reference notices one that has none.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
scripts/make-reference.sh
[ -s build-reference/html/classKivoDrawingTools_1_1CKivoFunctionPlotter.html ]

# The headers that are documented are those that are installed; KivoBuild.h and KivoVersion.h, which are generated, have macros
# only.
installed=$({
    sed -nE 's|^(.* )?(include/[A-Za-z]*\.h).*|KivoFunctionPlotter/\2|p' KivoFunctionPlotter/CMakeLists.txt
    for folder in controls/*/; do
        if [ -f "$folder/CMakeLists.txt" ]; then
            sed -nE "s|.*HEADERS (include/[A-Za-z]*\.h).*|$folder\1|p" "$folder/CMakeLists.txt"
        fi
    done
} | sort -u)
documented=$(grep -oE '[A-Za-z/]*/include/[A-Za-z]*\.h' docs/Doxyfile | sort)
[ -n "$installed" ]
diff <(echo "$installed") <(echo "$documented")

# Clang knows which parameters there are.
built=${KIVO_BUILD:-build-release}/KivoFunctionPlotter/include
for header in $documented; do
    case $header in
    controls/* | */KivoPlotControl.h) ;; # of other systems
    *) echo "#include \"$header\"" >>"$place/all.cpp" ;;
    esac
done
clang-tidy --quiet --checks='-*,clang-diagnostic-*,readability-function-size' --warnings-as-errors='*' --header-filter='.*' \
    "$place/all.cpp" -- -std=c++17 -Wdocumentation -I. "-I$built" "-I$built/Release" -IKivoFunctionPlotter/include

# Without its comments each header must be refused. The namespace keeps its own, or its functions would not count.
for header in $documented; do
    bare=$place/$(basename "$header")
    sed -E '\|^/// The plotter, and what|!s|///.*||; \|^/\*\*|,\|\*/|d' "$header" >"$bare"
    if sed "s|$header|$bare|; s|build-reference|$place|" docs/Doxyfile | doxygen - >"$place/words" 2>&1; then
        echo "$header is accepted without comments"
        exit 1
    fi
    grep -q "$bare.*is not documented" "$place/words"
done
