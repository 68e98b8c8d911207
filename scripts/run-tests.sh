#!/usr/bin/env bash
# Runs a GoogleTest program as one test of CTest's: scripts/run-tests.sh NAME COMMAND...
# What it draws goes to a folder of its own below KIVO_TEST_OUTPUT, its report beside that, where scripts/count-tests.py
# finds it. A program that leaves no report, or runs nothing, has failed.
set -uo pipefail
name=$1
shift
cd "$(dirname "${BASH_SOURCE[0]}")/.."
output=${KIVO_TEST_OUTPUT:-build-test-output}
mkdir -p "$output/$name"
report=$output/$name.xml
rm -f "$report"
report=${report#"$PWD/"} # relative, so that Windows programs find it, too

# The driver compiles a shader once and not again in each of the many programs that tests start, some in a home of their own.
export MESA_SHADER_CACHE_DIR=${MESA_SHADER_CACHE_DIR:-$PWD/build-test-output/shaders}

KIVO_TEST_OUTPUT=$output/$name GTEST_OUTPUT=xml:$report "$@"
status=$?
tests=$(sed -nE '0,/<testsuites /s/.*<testsuites tests="([0-9]+)".*/\1/p' "$report" 2>/dev/null)
skipped=$(grep -c 'result="skipped"' "$report" 2>/dev/null)
if [ "${tests:-0}" -le "${skipped:-0}" ]; then
    echo "$name: nothing was run" >&2
    exit 1
fi
exit $status
