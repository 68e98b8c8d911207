#!/usr/bin/env bash
# Brings the viewer's new texts into its catalogues, and drops those that are gone: scripts/update-words.sh [FOLDER].
# In a folder it does so with copies; the catalogues stay as they are.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../viewer"
folder=${1:-words}
[ "$folder" = words ] || cp words/*.ts "$folder"
# Sources without Qt have names of their own for Qt's functions. Without the lines where texts stand, which change with
# every edit.
PATH="/usr/lib/qt6/bin:$PATH" lupdate -silent -no-obsolete -locations none \
    -tr-function-alias translate+=Translate,QT_TRANSLATE_NOOP+=Marked \
    src -ts "$folder"/*.ts
