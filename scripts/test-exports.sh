#!/usr/bin/env bash
# The shared library exports the class, CKeepContext of KivoHost.h and the functions of KivoWindow.h, KivoPicture.h and
# KivoStyle.h, nothing else.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
library=${KIVO_BUILD:-build-release}/KivoFunctionPlotter/libKivoFunctionPlotter.so
class='(vtable for |typeinfo for |typeinfo name for )?KivoDrawingTools::(CKivoFunctionPlotter(::|$)|CKeepContext::~?CKeepContext\()'
functions='KivoDrawingTools::(AttachX11Window|CreateOffscreenWindow|ResizeOffscreenWindow|ReleaseWindow|GetWindowDpi|LastWindowError|CapturePicture|TakeView|GetStyle|SetStyle)\('
exported=$(nm --dynamic --defined-only --demangle "$library" | cut -d ' ' -f 3-)
unexpected=$(printf '%s\n' "$exported" | grep -Ev "^($class|$functions)" || true)
if [ -n "$unexpected" ]; then
    printf 'Exported without being part of the interface:\n%s\n' "$unexpected"
    exit 1
fi
for name in 'CKivoFunctionPlotter::OnCreate(' 'CKeepContext::CKeepContext(' 'CKeepContext::~CKeepContext(' AttachX11Window \
    CreateOffscreenWindow ResizeOffscreenWindow ReleaseWindow GetWindowDpi LastWindowError CapturePicture TakeView \
    GetStyle SetStyle; do
    grep -qF "KivoDrawingTools::$name" <<<"$exported" || { echo "Not exported: $name"; exit 1; }
done
