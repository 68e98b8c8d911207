#!/usr/bin/env bash
# Makes the reference of the public headers, build-reference/html/index.html. A public or protected name without a
# comment is an error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rm -rf build-reference
doxygen docs/Doxyfile
