#!/usr/bin/env bash
# Copies the snippets of docs/embedding.md from the examples: scripts/embedding-guide.sh [--check]
# A line "<!-- examples/FILE.cpp NAME -->" before a code block stands for the lines of that file between
# "// [docs: NAME]" and "// [docs: end]". With --check nothing is written, and a difference is a failure.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
guide=docs/embedding.md

# snippet <file> <name>: the marked lines, without the indentation that they share.
snippet() {
    awk -v name="$2" '
        index($0, "// [docs: end]") { inside = 0 }
        inside { line[++count] = $0; match($0, /^ */)
                 if ($0 != "" && (count == 1 || RLENGTH < shared)) shared = RLENGTH }
        index($0, "// [docs: " name "]") { inside = 1 }
        END { if (!count) exit 1
              for (i = 1; i <= count; ++i) print substr(line[i], shared + 1) }' "$1"
}

written=$(mktemp)
trap 'rm -f "$written"' EXIT
skipping=no
while IFS= read -r line; do
    if [[ $line == '<!-- examples/'*' -->' ]]; then
        read -r _ file name _ <<<"$line"
        printf '%s\n```cpp\n' "$line"
        snippet "$file" "$name" || { echo "$guide: $file has no part \"$name\"" >&2; exit 1; }
        printf '```\n'
        skipping=until-block
    elif [[ $skipping == until-block && $line == '```cpp' ]]; then
        skipping=block
    elif [[ $skipping == block ]]; then
        if [[ $line == '```' ]]; then skipping=no; fi
    else
        printf '%s\n' "$line"
    fi
done <"$guide" >"$written"

for example in examples/*_host.cpp examples/offscreen_picture.cpp; do
    grep -q "^<!-- $example attach -->$" "$guide" || { echo "$guide does not show $example" >&2; exit 1; }
done
if [ "${1:-}" = --check ]; then
    diff -u "$guide" "$written" || { echo "run scripts/embedding-guide.sh" >&2; exit 1; }
else
    cp "$written" "$guide"
fi
