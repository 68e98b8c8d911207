#!/usr/bin/env bash
# Runs a program in a display of its own until that shows a plot: scripts/until-plot-shows.sh <command>...
# Fails where the program ends before, or after two minutes.
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if [ -z "${KIVO_SCREEN_FOLDER:-}" ]; then
    KIVO_SCREEN_FOLDER=$(mktemp -d)
    export KIVO_SCREEN_FOLDER
    trap 'rm -rf "$KIVO_SCREEN_FOLDER"' EXIT
    "$scripts/with-display.sh" "${BASH_SOURCE[0]}" "$@"
    exit
fi

"$@" &
program=$!
trap 'kill -KILL "$program" 2>/dev/null || true' EXIT
end=$((SECONDS + 120))
while [ $SECONDS -lt $end ] && kill -0 "$program" 2>/dev/null; do
    # A lit surface has hundreds of colours; a desktop, a window's frame and a blank window have few.
    if python3 - "$KIVO_SCREEN_FOLDER/Xvfb_screen0" <<'CODE'
import struct, sys
picture = open(sys.argv[1], "rb").read()
header = struct.unpack(">25I", picture[:100])
pixels = picture[header[0] + 12 * header[19]:]
sys.exit(len(set(struct.iter_unpack("<I", pixels[:len(pixels) // 4 * 4]))) < 300)
CODE
    then
        echo "the plot shows after $SECONDS seconds"
        exit 0
    fi
    sleep 0.2
done
echo "no plot shows after $SECONDS seconds"
exit 1
