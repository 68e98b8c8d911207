#!/usr/bin/env bash
# Runs clang-tidy with the project's rules on every source of the optimised build: scripts/check-tidy.sh [--changed]
# With --changed only on those that differ from main, or from the commit before where this is main.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${KIVO_BUILD:-build-release}
compiled() { python3 -c '
import json, os, sys
for entry in json.load(open(sys.argv[1])):
    print(os.path.relpath(os.path.join(entry["directory"], entry["file"])))' "$build/compile_commands.json" | sort -u; }
ours() { git ls-files --cached --others --exclude-standard -- '*.cpp' | sort; }
sources=$(comm -12 <(compiled) <(ours))
if [ "${1:-}" = --changed ]; then
    base=$(git merge-base HEAD main 2>/dev/null || git rev-parse HEAD)
    [ "$base" != "$(git rev-parse HEAD)" ] || base=$(git rev-parse --verify --quiet HEAD~1 || echo "$base")
    sources=$(comm -12 <(echo "$sources") <({ git diff --name-only --diff-filter=d "$base" -- '*.cpp'
        git ls-files --others --exclude-standard -- '*.cpp'; } | sort -u))
fi
[ -n "$sources" ] || exit 0
xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet --warnings-as-errors='*' <<<"$sources"
