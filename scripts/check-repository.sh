#!/usr/bin/env bash
# Rules of the repository that no compiler checks.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
status=0
complain() {
    echo "$1"
    status=1
}

# Platform code stays in its layer, and in the two headers that hosts need because of it.
found=$(git grep -nE '^ *# *(if|ifdef|ifndef|elif).*(_WIN32|__linux__|__unix__)' -- KivoFunctionPlotter/src \
    KivoFunctionPlotter/include ':!KivoFunctionPlotter/src/window_system' ':!KivoFunctionPlotter/include/KivoPlatform.h' \
    ':!KivoFunctionPlotter/include/KivoWindow.h')
[ -z "$found" ] || complain "platform conditions outside the window-system layer:
$found"

# A folder is a layer.
found=$(scripts/check-includes.py) || complain "$found"

# Every source is built by a CMakeLists.txt of a folder above it.
listed=$(git ls-files --cached --others --exclude-standard -- '*CMakeLists.txt' | xargs cat)
while IFS= read -r source; do
    name=${source##*/}
    grep -qE "(^|[ /(])$name" <<<"$listed" || grep -qE "(kivo_example|kivo_toolkit_example)\(${name%.cpp}[ )]" <<<"$listed" ||
        grep -qE "IN ITEMS .*\<${name%.cpp}\>" <<<"$listed" || complain "not built: $source"
done < <(git ls-files --cached --others --exclude-standard -- '*.cpp')

# Every example stays short.
for example in examples/*.cpp; do
    [ "$(wc -l <"$example")" -lt 170 ] || complain "too long for an example: $example"
done
exit $status
