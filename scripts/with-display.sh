#!/usr/bin/env bash
# Runs a command in an X server of its own, without a screen: scripts/with-display.sh <command>...
# With KIVO_SCREEN_FOLDER set, a file Xvfb_screen0 in that folder always has what the screen shows.
set -euo pipefail
place=$(mktemp -d)
server=
# A server that is told to end just before it begins to wait for clients goes on waiting: it is told again.
end_server() {
    while kill "$server" 2>/dev/null; do sleep 0.1; done
    wait "$server" || true
}
trap '[ -z "$server" ] || end_server; rm -rf "$place"' EXIT
mkfifo "$place/number"
# The server chooses a free number by itself, so that several can start at once, and says it when it is ready.
Xvfb -displayfd 3 -screen 0 1280x1024x24 +extension GLX -nolisten tcp -noreset \
    ${KIVO_SCREEN_FOLDER:+-fbdir "$KIVO_SCREEN_FOLDER"} 3>"$place/number" 2>"$place/errors" &
server=$!
read -r number <"$place/number" || { # it has ended without a word
    cat "$place/errors" >&2
    exit 1
}
DISPLAY=":$number" env -u WAYLAND_DISPLAY -u XAUTHORITY "$@"
