#!/usr/bin/env bash
# The shared library exports the class, CKeepContext of KivoHost.h, CKivoPlotView and every function that a header marks with KIVO_API,
# nothing else.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
library=${KIVO_BUILD:-build-release}/KivoFunctionPlotter/libKivoFunctionPlotter.so
# The control of Windows is in the library for Windows.
mapfile -t names < <(grep -rohE --exclude=KivoPlotControl.h '^KIVO_API [^(;]*\(' KivoFunctionPlotter/include | sed -E 's/.*[ *&]([A-Za-z0-9]+)\($/\1/' | sort -u)
[ ${#names[@]} -gt 10 ] # else the headers are written otherwise
class='(vtable for |typeinfo for |typeinfo name for )?KivoDrawingTools::(CKivoFunctionPlotter(::|$)|CKeepContext::~?CKeepContext\(|CKivoPlotView::)'
functions="KivoDrawingTools::($(IFS='|' && echo "${names[*]}"))\\("
# GCC marks functions that return strings of its present library.
exported=$(nm --dynamic --defined-only --demangle "$library" | cut -d ' ' -f 3- | sed 's/\[abi:cxx11\]//')
unexpected=$(printf '%s\n' "$exported" | grep -Ev "^($class|$functions)" || true)
if [ -n "$unexpected" ]; then
    printf 'Exported without being part of the interface:\n%s\n' "$unexpected"
    exit 1
fi
for name in 'CKivoFunctionPlotter::OnCreate(' 'CKeepContext::CKeepContext(' 'CKeepContext::~CKeepContext(' "${names[@]/%/(}"; do
    grep -qF "KivoDrawingTools::$name" <<<"$exported" || { echo "Not exported: $name"; exit 1; }
done
