#!/usr/bin/env bash
# Builds a wheel of the Python module without a network, installs it into a virtual environment of its own, and uses it there:
# scripts/test-wheel.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
KIVO_BUILD=$(realpath "${KIVO_BUILD:-build-test}")
export KIVO_BUILD PIP_NO_INDEX=1 PIP_DISABLE_PIP_VERSION_CHECK=1 PIP_NO_CACHE_DIR=1
python=$(sed -n 's/^_\?Python_EXECUTABLE:[A-Z]*=//p' "$KIVO_BUILD/CMakeCache.txt" | head -n 1)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

mkdir -p "$place/checkout"
cp -r CMakeLists.txt python "$place/checkout" # setuptools writes beside what it builds
"$python" -m pip wheel --quiet --no-build-isolation --no-deps --wheel-dir "$place" "$place/checkout/python"
wheel=$(echo "$place"/kivoplot-*.whl)

# NumPy is the system's: what the wheel brings is in the environment alone.
"$python" -m venv --system-site-packages --without-pip "$place/environment"
"$python" -m pip --python "$place/environment/bin/python" install --quiet --no-deps "$wheel" 2>/dev/null ||
    "$place/environment/bin/python" -m pip install --quiet --no-deps "$wheel"
cd "$place"
env -u PYTHONPATH -u DISPLAY "$place/environment/bin/python" - "$place/environment" <<'PROGRAM'
import pathlib, subprocess, sys
import numpy as np, kivoplot as kp
assert pathlib.Path(kp.__file__).is_relative_to(sys.argv[1]), kp.__file__
module = kp._kivoplot.__file__
assert 'libKivoFunctionPlotter' not in subprocess.run(['ldd', module], capture_output=True, text=True).stdout
kp.plot(np.eye(9), title='From the wheel').save('plot.png')
assert pathlib.Path('plot.png').read_bytes().startswith(b'\x89PNG')
assert (pathlib.Path(kp.__file__).parent / 'py.typed').exists()
PROGRAM
"$python" -m zipfile -l "$wheel" | grep 'kivoplot/_kivoplot.pyi'
