#!/usr/bin/env bash
# Runs every test: ./test.sh. Ends in one line of counts; the exit status is 0 when none has failed.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$root"
. scripts/packages.sh

install_packages "${kivo_run_packages[@]}" "${kivo_test_packages[@]}" || exit 1
export KIVO_TEST_OUTPUT="$root/build-test-output"
rm -rf "$KIVO_TEST_OUTPUT"
mkdir -p "$KIVO_TEST_OUTPUT"
. scripts/test-report.sh
. scripts/sanitizers.sh
without_display=(env -u DISPLAY -u WAYLAND_DISPLAY)

# The library's tests, of the build release or asan.
library_without_display() {
    run_tests "$1-computing" "${without_display[@]}" "build-$1/tests/kivo-computing-tests"
    run_tests "$1-offscreen" "${without_display[@]}" "build-$1/tests/kivo-plotter-tests"
    run_tests "$1-window-system" "${without_display[@]}" "build-$1/tests/kivo-window-system-tests"
    run_tests "$1-calls" "${without_display[@]}" "build-$1/tests/kivo-call-tests"
}
library_in_x11() {
    # What is the same without a display is left out, but not all: the leak checker needs the driver to stay loaded.
    run_tests "$1-x11" scripts/with-display.sh "build-$1/tests/kivo-plotter-tests" \
        --gtest_filter='-*/Offscreen:BadNumbers.*'
    run_tests "$1-window-system-x11" scripts/with-display.sh "build-$1/tests/kivo-window-system-tests"
}

# All that runs Windows programs, one after another: they share one Windows.
on_windows() {
    check "a Windows of Wine's" scripts/with-display.sh scripts/with-wine.sh cmd /c exit
    run_tests hosts scripts/with-display.sh env KIVO_WIN32_HOST="$root/build-mingw/examples/win32_host.exe" \
        build-release/tests/kivo-host-tests
    run_tests windows scripts/with-display.sh scripts/with-wine.sh build-mingw/tests/kivo-plotter-tests.exe
    run_tests windows-computing scripts/with-wine.sh build-mingw/tests/kivo-computing-tests.exe
    check "pictures of X11, off-screen and Windows agree" scripts/with-display.sh scripts/compare-platforms.sh
    check "package, shared, Windows" scripts/test-package.sh shared Release FetchContent mingw
    check "package, static, Windows" scripts/test-package.sh static Release add_subdirectory mingw
    check "quick start, Windows" scripts/test-quick-start.sh windows
}

packages() {
    check "package, shared" scripts/test-package.sh shared Release add_subdirectory
    check "package, static" scripts/test-package.sh static Release FetchContent
    check "package, shared, Debug" scripts/test-package.sh shared Debug FetchContent
    check "package, static, Debug" scripts/test-package.sh static Debug add_subdirectory
    check "standard library of hosts" scripts/test-standard-library.sh
    check "Debian packages" scripts/test-deb.sh
    check "binary interface" scripts/check-abi.sh
    check "recipes for vcpkg and Conan" scripts/check-recipes.sh
    check "quick start, Linux" scripts/test-quick-start.sh linux
    check "exported symbols" scripts/test-exports.sh
    check "hardening" scripts/test-hardening.sh
}

# What the fuzzers have found to reach the most, once more.
inputs_of_fuzzers() {
    local corpus
    for corpus in viewer/tests/fuzz/corpus/{formula,reader} KivoFunctionPlotter/tests/fuzz/corpus/plotter; do
        check "inputs of fuzzers, ${corpus##*/}" "${without_display[@]}" "build-asan/tests/kivo-fuzz-${corpus##*/}" "$corpus"
    done
}

documentation() {
    check "snippets of the guides" scripts/guide-snippets.sh --check
    check "pictures of the guides" scripts/make-pictures.sh --check
    check "words of the troubleshooting guide" scripts/check-messages.sh
    check "reference of the headers" scripts/test-reference.sh
    check "links of the documentation" scripts/check-links.sh
    check "list of members" scripts/test-members.sh
    check "formatting" scripts/check-format.sh
    check "repository rules" scripts/check-repository.sh
}

on_linux() {
    library_without_display release
    library_in_x11 release
    run_tests plugins "${without_display[@]}" build-release/tests/kivo-plugin-tests
    run_tests load "${without_display[@]}" build-release/tests/kivo-load-tests
    run_tests viewer-window scripts/with-display.sh build-release/tests/kivo-viewer-tests --gtest_filter='*Window*'
    check "off-screen picture" env -u DISPLAY build-release/examples/offscreen_picture "$KIVO_TEST_OUTPUT/offscreen.png"
    check "recorded calls" scripts/test-recorder.sh
    check "memory, by memcheck" scripts/test-valgrind.sh
    documentation
}

under_sanitizers() {
    library_without_display asan
    library_in_x11 asan
    run_tests asan-load "${without_display[@]}" KIVO_LOAD_PERCENT=10 build-asan/tests/kivo-load-tests
    run_tests viewer-command "${without_display[@]}" build-asan/tests/kivo-viewer-tests --gtest_filter='-*Window*'
    inputs_of_fuzzers
}

on_windows_and_packaged() {
    on_windows
    packages
}

# The builds: optimised, under sanitizers, and for Windows. Warnings are errors in all of them.
check "build (release)" scripts/build.sh release
check "build (asan)" scripts/build.sh asan kivo-computing-tests kivo-plotter-tests kivo-window-system-tests kivo-call-tests \
    kivo-load-tests kivo-viewer-tests \
    kivo-fuzz-formula kivo-fuzz-reader kivo-fuzz-plotter
check "build (mingw)" scripts/build.sh mingw
at_once on_linux under_sanitizers on_windows_and_packaged
finish
