#!/usr/bin/env bash
# Links of the documentation: files and headings that they name exist, every picture is used, and every page of docs/
# is reached from docs/README.md, and that from README.md.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
status=0
complain() {
    echo "$1"
    status=1
}

# prose <page>: without code.
prose() {
    awk '/^ *```/ { code = !code; next } !code' "$1" | sed -E 's/`[^`]*`//g'
}

# links <page>: the targets of its links and pictures, without those that lead out of the repository.
links() {
    { prose "$1" | grep -oE '\]\([^)]+\)' || true; } | sed -E 's/^\]\(//; s/\)$//' | grep -vE '^(https?|mailto):' || true
}

# anchors <page>: its headings as links name them.
anchors() {
    awk '/^ *```/ { code = !code; next } !code && /^#+ /' "$1" | sed -E 's/^#+ +//' | tr '[:upper:]' '[:lower:]' |
        sed -E 's/[^a-z0-9 _-]//g; s/ /-/g'
}

pages=(README.md CONTRIBUTING.md CHANGELOG.md SECURITY.md THIRD-PARTY.md docs/*.md packaging/*.md)
for page in "${pages[@]}"; do
    while IFS= read -r link; do
        [ -n "$link" ] || continue
        file=${link%%#*}
        target=$page
        if [ -n "$file" ]; then target=$(realpath -m --relative-to=. "$(dirname "$page")/$file"); fi
        if [ ! -e "$target" ]; then
            complain "$page: there is no $target"
        elif [[ $link == *'#'* ]] && ! grep -qxF -- "${link#*#}" <<<"$(anchors "$target")"; then
            complain "$page: $target has no heading #${link#*#}"
        fi
    done < <(links "$page")
done

# Files of the documentation that are named in the text are links' targets or exist all the same.
for page in "${pages[@]}"; do
    for name in $(grep -ohE '`(KivoFunctionPlotter|docs|scripts|examples|viewer)/[A-Za-z0-9_./-]+`' "$page" | tr -d '`' | sort -u); do
        [ -e "$name" ] || [ -e "$name.cpp" ] || complain "$page: there is no $name"
    done
done

for picture in $(git ls-files --cached --others --exclude-standard docs/pictures); do
    grep -qF -- "](${picture#docs/})" docs/*.md || grep -qF -- "]($picture)" README.md ||
        complain "no page shows $picture"
done

# reach <page>: all pages that it leads to.
reached=" "
reach() {
    local link target
    [[ $reached == *" $1 "* ]] && return
    reached+="$1 "
    while IFS= read -r link; do
        target=$(realpath -m --relative-to=. "$(dirname "$1")/${link%%#*}")
        if [[ $target == docs/*.md && -e $target ]]; then reach "$target"; fi
    done < <(links "$1")
}
if grep -qx docs/README.md <<<"$(links README.md)"; then reach docs/README.md; else complain "README.md does not link docs/README.md"; fi
for page in docs/*.md; do
    [[ $reached == *" $page "* ]] || complain "docs/README.md does not lead to $page"
done
exit $status
