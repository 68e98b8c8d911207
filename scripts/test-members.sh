#!/usr/bin/env bash
# docs/members.md lists the members that the header declares, and the shared library has every one of them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
if ! diff -u docs/members.md <(scripts/list-members.sh); then
    echo "docs/members.md is out of date; run scripts/list-members.sh >docs/members.md"
    exit 1
fi
# Overloads count: as many definitions of a name as declarations. Constructors and destructors come in several
# variants of one definition.
defined=$(nm --dynamic --defined-only --demangle "${KIVO_BUILD:-build-release}"/KivoFunctionPlotter/libKivoFunctionPlotter.so |
    sed -n 's/.* [TW] KivoDrawingTools::CKivoFunctionPlotter::\(.*\)/\1/p' | sort -u)
status=0
while read -r count name; do
    found=$(printf '%s\n' "$defined" | grep -cE "^${name}\(" || true)
    if [ "$found" -lt "$count" ]; then
        echo "$name: $count declared, $found in the library"
        status=1
    fi
done < <(sed -n 's/^| [^|]* | [^|]* | `\(.*\)` |$/\1/p' docs/members.md | sed -E 's/^([^(]*[ *&])?([A-Za-z0-9_~=]+)\(.*/\2/' | sort | uniq -c)
exit $status
