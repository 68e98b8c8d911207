#!/usr/bin/env bash
# Runs a Windows program under Wine, with a Windows of its own: scripts/with-wine.sh <program.exe> [arguments]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX="${WINEPREFIX:-$root/build-wine}" WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" # no downloads, no desktop entries
unset XDG_RUNTIME_DIR
if [ ! -e "$WINEPREFIX/.ready" ]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9 # whoever comes meanwhile waits until it is there
        [ ! -e "$WINEPREFIX/.ready" ] || exit 0
        wineboot --init >/dev/null 2>&1
        wineserver --wait
        touch "$WINEPREFIX/.ready"
    ) 9>"$WINEPREFIX/.lock"
fi
exec wine "$@"
