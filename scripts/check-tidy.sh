#!/usr/bin/env bash
# Runs clang-tidy with the project's rules on every source of the optimised build: scripts/check-tidy.sh [--changed]
# With --changed only on those that differ from main, or from the commit before where this is main.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${KIVO_BUILD:-build-release}
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

# The compiler's database, without the precompiled headers, which only the compiler that made them understands, and without
# what turns another compiler's warnings into errors: the rules decide which count.
sed -E 's/ -Winvalid-pch -include [^ ]+//; s/ -Werror / /' "$build/compile_commands.json" >"$place/compile_commands.json"
compiled=$(sed -nE 's|^ *"file": "'"$PWD"'/(.*\.cpp)",?$|\1|p' "$place/compile_commands.json" | sort -u)
sources=$(comm -12 <(echo "$compiled") <(git ls-files --cached --others --exclude-standard -- '*.cpp' | sort))
if [ "${1:-}" = --changed ]; then
    base=$(git merge-base HEAD main 2>/dev/null || git rev-parse HEAD)
    [ "$base" != "$(git rev-parse HEAD)" ] || base=$(git rev-parse --verify --quiet HEAD~1 || echo "$base")
    changed=$({ git diff --name-only "$base" -- '*.cpp' && git ls-files --others --exclude-standard -- '*.cpp'; } | sort -u)
    sources=$(comm -12 <(echo "$sources") <(echo "$changed"))
fi
[ -n "$sources" ] || exit 0
xargs -P "$(nproc)" -n 4 clang-tidy -p "$place" --quiet --warnings-as-errors='*' <<<"$sources"
