#!/usr/bin/env bash
# Runs the tests: ./test.sh [quick] [option of ctest]...
# Installs what they need, builds, and has CTest run them side by side. Ends in one line of counts; the exit status is 0 when
# none has failed. `quick` leaves out what takes long: the sanitizers, Windows, packages, and whatever opens windows.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/packages.sh
install_packages "${kivo_run_packages[@]}" "${kivo_test_packages[@]}"

builds=(test asan tsan mingw)
chosen=(--label-exclude only-quick)
if [ "${1:-}" = quick ]; then
    shift
    builds=(test)
    chosen=(--label-regex quick)
fi

export KIVO_TEST_OUTPUT=$PWD/build-test-output
rm -rf "$KIVO_TEST_OUTPUT"
mkdir -p "$KIVO_TEST_OUTPUT"
build() { # preset
    local log=$KIVO_TEST_OUTPUT/build-$1.log start=$SECONDS
    if ! scripts/build.sh "$1" >"$log" 2>&1; then
        grep -E 'error|FAILED|Error' "$log" | head -n 40
        tail -n 40 "$log"
        echo "1 failed: the build of $1"
        exit 1
    fi
    echo "built $1 in $((SECONDS - start)) s"
    echo "subdirs(\"$PWD/build-$1\")" >>"$KIVO_TEST_OUTPUT/CTestTestfile.cmake"
}
for preset in "${builds[@]}"; do build "$preset"; done
export KIVO_WIN32_HOST=$PWD/build-mingw/examples/win32_native_host.exe
[ -e "$KIVO_WIN32_HOST" ] || unset KIVO_WIN32_HOST

start=$SECONDS
# Many wait for windows more than they compute, so that twice as many as there are processors keep these busy.
ctest --test-dir "$KIVO_TEST_OUTPUT" --parallel $(($(nproc) * 2)) --output-on-failure --no-tests=error \
    --output-junit "$KIVO_TEST_OUTPUT/ctest.xml" "${chosen[@]}" "$@" || true
echo "tested in $((SECONDS - start)) s, $((SECONDS / 60)) min $((SECONDS % 60)) s in all; reports and pictures are in build-test-output"
scripts/count-tests.py "$KIVO_TEST_OUTPUT/ctest.xml" "$KIVO_TEST_OUTPUT"
