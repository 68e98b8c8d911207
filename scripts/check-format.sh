#!/usr/bin/env bash
# Fails where a source differs from what .clang-format makes of it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
