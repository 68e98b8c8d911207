#!/usr/bin/env bash
# Tests the Python module of a build: scripts/test-python.sh arrays|lifetime|members|pictures|windows|guide|types
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=$(realpath "${KIVO_BUILD:-build-test}")
export PYTHONPATH=$build/python PYTHONDONTWRITEBYTECODE=1 KIVO_VIEWER=$build/viewer/kivo-viewer
python=$(sed -n 's/^_\?Python_EXECUTABLE:[A-Z]*=//p' "$build/CMakeCache.txt" | head -n 1)
output=${KIVO_TEST_OUTPUT:-build-test-output}
mkdir -p "$output"
output=$(realpath "$output")

if [ "$1" != types ]; then
    [ "$1" = windows ] || [ "$1" = guide ] || unset DISPLAY WAYLAND_DISPLAY
    exec "$python" -X faulthandler -m pytest --quiet -p no:cacheprovider --junit-xml="$output/linux.python.$1.xml" \
        --rootdir=python -c python/pyproject.toml "python/tests/test_$1.py"
fi

# Types: those of the module are the recorded ones, those of the package are consistent, and both are what is there.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
"$python" python/tools/make-stub.py >"$place/_kivoplot.pyi"
diff "$place/_kivoplot.pyi" python/kivoplot/_kivoplot.pyi
export MYPY_CACHE_DIR=$place/cache
"$python" -m mypy --config-file python/pyproject.toml "$build/python/kivoplot"
(
    cd "$place"
    "$python" -m mypy.stubtest kivoplot._kivoplot \
        --concise 2>&1 | grep -v 'metaclass differs$' | tee "$place/found" || true
)
[ ! -s "$place/found" ]
