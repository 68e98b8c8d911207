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
installed=$(sed -n '/^set(kivo_headers$/,/)/p' KivoFunctionPlotter/CMakeLists.txt | grep -o 'include/[A-Za-z]*\.h' | sort)
documented=$(grep -o 'include/[A-Za-z]*\.h' docs/Doxyfile | sort)
[ -n "$installed" ]
diff <(echo "$installed") <(echo "$documented")

# Clang knows which parameters there are.
built=${KIVO_BUILD:-build-release}/KivoFunctionPlotter/include
for header in $documented; do
    echo "#include \"$header\"" >>"$place/all.cpp"
done
clang-tidy --quiet --checks='-*,clang-diagnostic-*,readability-function-size' --warnings-as-errors='*' --header-filter='.*' \
    "$place/all.cpp" -- -std=c++17 -Wdocumentation -IKivoFunctionPlotter "-I$built" "-I$built/Release" \
    -IKivoFunctionPlotter/include

# Without its comments each header must be refused. The namespace keeps its own, or its functions would not count.
for header in $documented; do
    sed -E '\|^/// The plotter, and what|!s|///.*||' "KivoFunctionPlotter/$header" >"$place/bare.h"
    if sed "s|KivoFunctionPlotter/$header|$place/bare.h|; s|build-reference|$place|" docs/Doxyfile |
        doxygen - >"$place/words" 2>&1; then
        echo "$header is accepted without comments"
        exit 1
    fi
    grep -q 'bare.h.*is not documented' "$place/words"
done
