#!/usr/bin/env bash
# The shared library has every public and protected member function that the class declares, with all its overloads.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
library=${1:-${KIVO_BUILD:-build-release}/KivoFunctionPlotter/libKivoFunctionPlotter.so}

# The names of the member functions, each as often as it is declared.
declared=$(awk '
    /^class KIVO_API CKivoFunctionPlotter/ { inside = 1; next }
    !inside { next }
    /^private:/ { exit }
    /^(public|protected):/ { declaration = ""; next }
    { sub(/\/\/.*/, ""); declaration = declaration " " $0 }
    /; *$/ {
        if (match(declaration, /[A-Za-z0-9_~=]+\(/)) print substr(declaration, RSTART, RLENGTH - 1)
        declaration = ""
    }
' KivoFunctionPlotter/include/KivoFunctionPlotter.h | sort | uniq -c)
[ "$(wc -l <<<"$declared")" -gt 100 ]

# Constructors and destructors come in several variants of one definition.
defined=$(nm --dynamic --defined-only --demangle "$library" |
    sed -n 's/.* [TW] KivoDrawingTools::CKivoFunctionPlotter::\(.*\)/\1/p' | sort -u)
status=0
while read -r count name; do
    found=$(printf '%s\n' "$defined" | grep -cE "^${name}\(" || true)
    if [ "$found" -lt "$count" ]; then
        echo "$name: $count declared, $found in the library"
        status=1
    fi
done <<<"$declared"
exit $status
