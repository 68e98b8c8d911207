#!/usr/bin/env bash
# Every public and protected name of the installed headers has a comment, and the reference notices one that has none.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/make-reference.sh
[ -s build-reference/html/classKivoDrawingTools_1_1CKivoFunctionPlotter.html ]

# The headers that are documented are those that are installed; KivoBuild.h and KivoVersion.h, which are generated, have macros
# only.
installed=$(sed -n '/^set(kivo_headers$/,/)/p' KivoFunctionPlotter/CMakeLists.txt | grep -o 'include/[A-Za-z]*\.h' | sort)
documented=$(grep -o 'include/[A-Za-z]*\.h' docs/Doxyfile | sort)
[ -n "$installed" ]
diff <(echo "$installed") <(echo "$documented")

# Without its comments each header must be refused. The namespace keeps its own, or its functions would not count.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
for header in $documented; do
    sed -E '\|^/// The plotter, and what|!s|///.*||' "KivoFunctionPlotter/$header" >"$place/bare.h"
    if sed "s|KivoFunctionPlotter/$header|$place/bare.h|; s|build-reference|$place|" docs/Doxyfile |
        doxygen - >"$place/words" 2>&1; then
        echo "$header is accepted without comments"
        exit 1
    fi
    grep -q 'bare.h.*is not documented' "$place/words"
done
