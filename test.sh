#!/usr/bin/env bash
# Runs every test: ./test.sh. Ends in one line of counts; the exit status is 0 when none has failed.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$root"
. scripts/packages.sh
. scripts/test-report.sh

install_packages "${kivo_run_packages[@]}" "${kivo_test_packages[@]}" || exit 1
export KIVO_TEST_OUTPUT="$root/build-test-output"
rm -rf "$KIVO_TEST_OUTPUT"
mkdir -p "$KIVO_TEST_OUTPUT"

# The builds: optimised, under sanitizers, and for Windows. Warnings are errors in all of them.
for preset in release asan mingw; do
    check "build ($preset)" scripts/build.sh "$preset"
done

# The library's tests: without a display, in X11 windows, both again under sanitizers, and on Windows.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export LSAN_OPTIONS="suppressions=$root/KivoFunctionPlotter/tests/support/leaks.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1
for preset in release asan; do
    run_tests "$preset-offscreen" env -u DISPLAY -u WAYLAND_DISPLAY "build-$preset/tests/kivo-tests"
    # What is the same without a display is left out, but not all: the leak checker needs the driver to stay loaded.
    run_tests "$preset-x11" scripts/with-display.sh "build-$preset/tests/kivo-tests" \
        --gtest_filter='-*/Offscreen:AxisLabelLayoutSweep.*'
    run_tests "$preset-conformance" env -u DISPLAY -u WAYLAND_DISPLAY "build-$preset/tests/kivo-conformance-tests"
done
run_tests load env -u DISPLAY -u WAYLAND_DISPLAY build-release/tests/kivo-load-tests
run_tests asan-load env -u DISPLAY -u WAYLAND_DISPLAY KIVO_LOAD_PERCENT=10 build-asan/tests/kivo-load-tests
run_tests viewer-command env -u DISPLAY -u WAYLAND_DISPLAY build-asan/tests/kivo-viewer-tests --gtest_filter='-*Window*'
run_tests viewer-window scripts/with-display.sh build-release/tests/kivo-viewer-tests --gtest_filter='*Window*'
run_tests hosts scripts/with-display.sh env KIVO_WIN32_HOST="$root/build-mingw/examples/win32_host.exe" \
    build-release/tests/kivo-host-tests
run_tests windows scripts/with-display.sh scripts/with-wine.sh build-mingw/tests/kivo-tests.exe

# What the fuzzers have found to reach the most, once more.
for target in formula reader plotter; do
    check "inputs of fuzzers, $target" env -u DISPLAY -u WAYLAND_DISPLAY \
        "build-asan/tests/kivo-fuzz-$target" "KivoFunctionPlotter/tests/fuzz/corpus/$target"
done

# What cannot be said in one program.
check "pictures of X11, off-screen and Windows agree" scripts/with-display.sh scripts/compare-platforms.sh
check "off-screen picture" env -u DISPLAY build-release/examples/offscreen_picture "$KIVO_TEST_OUTPUT/offscreen.png"
check "package, shared" scripts/test-package.sh shared Release add_subdirectory
check "package, static" scripts/test-package.sh static Release FetchContent
check "package, shared, Debug" scripts/test-package.sh shared Debug FetchContent
check "package, static, Debug" scripts/test-package.sh static Debug add_subdirectory
check "package, shared, Windows" scripts/test-package.sh shared Release FetchContent mingw
check "package, static, Windows" scripts/test-package.sh static Release add_subdirectory mingw
check "Debian packages" scripts/test-deb.sh
check "recipes for vcpkg and Conan" scripts/check-recipes.sh
check "quick start, Linux" scripts/test-quick-start.sh linux
check "quick start, Windows" scripts/test-quick-start.sh windows
check "snippets of the guides" scripts/guide-snippets.sh --check
check "pictures of the guides" scripts/make-pictures.sh --check
check "memory, by memcheck" scripts/test-valgrind.sh
check "exported symbols" scripts/test-exports.sh
check "hardening" scripts/test-hardening.sh
check "binary interface" scripts/check-abi.sh
check "recorded calls" scripts/test-recorder.sh
check "words of the troubleshooting guide" scripts/check-messages.sh
check "reference of the headers" scripts/test-reference.sh
check "links of the documentation" scripts/check-links.sh
check "list of members" scripts/test-members.sh
check "formatting" scripts/check-format.sh
check "repository rules" scripts/check-repository.sh

finish
