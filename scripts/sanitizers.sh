#!/usr/bin/env bash
# The settings of programs built with sanitizers: scripts/sanitizers.sh COMMAND..., or to be sourced from the root of the
# repository.

# The look-up of loaded libraries' thread-local storage is not followed: GCC 12 guesses its bounds wrong where it begins
# 16 bytes behind a page's start, and the leak check then reads where nothing is and fails.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:intercept_tls_get_addr=0:quarantine_size_mb=32
export LSAN_OPTIONS="suppressions=$PWD/KivoFunctionPlotter/tests/support/leaks.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1
export TSAN_OPTIONS="suppressions=$PWD/KivoFunctionPlotter/tests/support/threads.supp:print_suppressions=0"
[ "${BASH_SOURCE[0]}" != "$0" ] || exec "$@"
