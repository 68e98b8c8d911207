#!/usr/bin/env bash
# The words that docs/troubleshooting.md quotes are the library's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
spoken=$(cat KivoFunctionPlotter/src/window_system/linux/*.cpp | tr '\n' ' ' | sed -E 's/" +"//g')
quoted=$(sed -n '/^| Words/,/^$/s/^| `\([^`]*\)` .*/\1/p' docs/troubleshooting.md)
[ -n "$quoted" ]
status=0
while IFS= read -r words; do
    grep -qF -- "${words#???: }" <<<"$spoken" || # "X11: " and "EGL: " are often put before by a function
        { echo "the library does not say: $words"; status=1; }
done <<<"$quoted"
exit $status
