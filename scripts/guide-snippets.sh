#!/usr/bin/env bash
# Copies the snippets of the guides from the examples: scripts/guide-snippets.sh [--check]
# A line "<!-- examples/FILE NAME -->" before a code block stands for the lines of that file between "[docs: NAME]" and
# "[docs: end]". With --check nothing is written, and a difference is a failure.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# snippet <file> <name>: the marked lines, without the indentation that they share.
snippet() {
    awk -v name="$2" '
        index($0, "[docs: end]") { inside = 0 }
        inside { line[++count] = $0; match($0, /^ */)
                 if ($0 != "" && (count == 1 || RLENGTH < shared)) shared = RLENGTH }
        index($0, "[docs: " name "]") { inside = 1 }
        END { if (!count) exit 1
              for (i = 1; i <= count; ++i) print substr(line[i], shared + 1) }' "$1"
}

# refreshed <guide>: the guide with its snippets as the examples have them.
refreshed() {
    local line file name skipping=no
    while IFS= read -r line; do
        printf '%s\n' "$line"
        if [[ $line == '<!-- examples/'*' -->' ]]; then
            read -r _ file name _ <<<"$line"
            skipping=until-block
        elif [[ $skipping == until-block && $line == '```'* ]]; then
            snippet "$file" "$name" || { echo "$1: $file has no part \"$name\"" >&2; return 1; }
            while IFS= read -r line && [[ $line != '```' ]]; do :; done
            printf '```\n'
            skipping=no
        fi
    done <"$1"
}

# Everything that is marked in the examples is shown by a guide, and every feature beside its picture.
status=0
complain() {
    echo "$1" >&2
    status=1
}
while IFS=: read -r file mark; do
    name=$(sed 's/.*\[docs: \(.*\)\].*/\1/' <<<"$mark")
    [ "$name" = end ] || grep -qxF -- "<!-- $file $name -->" README.md docs/*.md ||
        complain "no guide shows the part \"$name\" of $file"
done < <(grep -ro '\[docs: .*\]' examples | sort -u)
for example in examples/*_host.cpp examples/offscreen_picture.cpp; do
    grep -qF "<!-- $example attach -->" docs/embedding.md || grep -qF "<!-- $example control -->" docs/controls.md ||
        complain "neither docs/embedding.md nor docs/controls.md shows $example"
done
for name in $(grep -ohE '\{"[a-z-]+", [A-Z]' examples/features/*.cpp | cut -d '"' -f 2); do
    awk -v name="$name" '
        $1 == "<!--" { latest = $3 }
        index($0, "](pictures/features/" name ".png)") && latest == name { found = 1 }
        END { exit !found }' docs/features.md || complain "docs/features.md does not show $name.png beside its code"
done

written=$(mktemp)
trap 'rm -f "$written"' EXIT
for guide in README.md docs/*.md; do
    refreshed "$guide" >"$written"
    if [ "${1:-}" != --check ]; then
        cmp -s "$guide" "$written" || cp "$written" "$guide"
    elif ! diff -u "$guide" "$written"; then
        complain "run scripts/guide-snippets.sh"
    fi
done
exit $status
