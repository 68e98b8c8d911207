#!/usr/bin/env bash
# Brings the viewer's new texts into its catalogues, and drops those that are gone: scripts/update-words.sh [folder].
# A folder takes copies of the catalogues instead, and the catalogues stay as they are.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../viewer"
folder=${1:-words}
[ "$folder" = words ] || cp words/*.ts "$folder"
lupdate=$(command -v lupdate6 || ls /usr/lib/qt6/bin/lupdate)
# Of sources without Qt; lines would change with every edit.
"$lupdate" -silent -no-obsolete -locations none \
    -tr-function-alias translate+=Translate,QT_TRANSLATE_NOOP+=Marked \
    src -ts "$folder"/kivo-viewer_de.ts "$folder"/kivo-viewer_ja.ts
