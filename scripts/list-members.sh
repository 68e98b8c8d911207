#!/usr/bin/env bash
# Prints docs/members.md: every public and protected member function of the class, as the header declares it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cat <<'END'
# Members of CKivoFunctionPlotter

Every public and protected member function, in the order of the header, which says what each means. This page is made
by `scripts/list-members.sh`; a test compares it with the header and finds every member in the library.

| Section | Access | Member |
|---|---|---|
END
awk '
    /^class KIVO_API CKivoFunctionPlotter/ { inside = 1; next }
    !inside { next }
    /^public:/ { access = "public"; next }
    /^protected:/ { access = "protected"; next }
    /^private:/ { exit }
    /^    \/\/ -+$/ { getline; section = $0; sub(/^ *\/\/ */, "", section); getline; next }
    { sub(/\/\/.*/, "") }
    section == "" || section == "Fields" { next }
    /^ *$/ { next }
    { gsub(/^ +| +$/, ""); declaration = declaration (declaration == "" ? "" : " ") $0 }
    /;$|;[ ]*$/ {
        if (declaration ~ /\(/) {
            sub(/;.*/, "", declaration)
            printf "| %s | %s | `%s` |\n", section, access, declaration
        }
        declaration = ""
    }
' KivoFunctionPlotter/include/KivoFunctionPlotter.h
