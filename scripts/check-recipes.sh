#!/usr/bin/env bash
# What can be tried of the recipes for vcpkg and Conan without these programs: scripts/check-recipes.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
version=$(sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export PYTHONPYCACHEPREFIX="$place/python"

# vcpkg: the manifest is of this version, and its script fits the project.
python3 -c 'import json, sys; assert json.load(open(sys.argv[1]))["version"] == sys.argv[2]' \
    packaging/vcpkg/kivofunctionplotter/vcpkg.json "$version"
cmake -DBUILD="$place/vcpkg" -P packaging/vcpkg/offline_check.cmake

# Conan: the version, the files and the variables of the recipe are those of the project.
python3 -m py_compile packaging/conan/conanfile.py packaging/conan/test_package/conanfile.py
python3 packaging/conan/offline_check.py "$place/exported" >"$place/printed"
[ "$(head -n 1 "$place/printed")" = "$version" ]
mapfile -t variables < <(tail -n +2 "$place/printed")
cmake -S "$place/exported" -B "$place/conan" -G Ninja "${variables[@]}" 2>&1 | tee "$place/complaints"
if grep "not used by the project" "$place/complaints"; then exit 1; fi
