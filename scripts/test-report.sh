# Runs tests and counts them. To be sourced by test.sh, which sets KIVO_TEST_OUTPUT.

passed=0
failed=0
skipped=0

# check <name> <command>...: one test, its output shown when it fails.
check() {
    local name=$1 log
    shift
    log="$KIVO_TEST_OUTPUT/$(printf '%s' "$name" | tr -cs 'a-zA-Z0-9' '-').log"
    if "$@" >"$log" 2>&1 </dev/null; then
        passed=$((passed + 1))
        echo "ok      $name"
    else
        failed=$((failed + 1))
        tail -n 60 "$log"
        echo "FAILED  $name"
    fi
}

# run_tests <name> <command>...: a GoogleTest program, its cases counted one by one.
run_tests() {
    local name=$1 log xml status counts
    shift
    log="$KIVO_TEST_OUTPUT/$name.log"
    xml="$KIVO_TEST_OUTPUT/$name.xml"
    xml=${xml#"$PWD/"} # relative, so that Windows programs find it too
    GTEST_OUTPUT="xml:$xml" timeout 900 "$@" >"$log" 2>&1 </dev/null
    status=$?
    counts=$(sed -n 's/.*<testsuites tests="\([0-9]*\)" failures="\([0-9]*\)".*/\1 \2/p' "$xml" 2>/dev/null | head -n 1)
    if [ -z "$counts" ]; then # it did not live to write its report
        failed=$((failed + 1))
        tail -n 60 "$log"
        echo "FAILED  $name (status $status, no report)"
        return
    fi
    local tests=${counts% *} failures=${counts#* } omitted
    omitted=$(grep -c 'result="skipped"' "$xml")
    # A sanitizer's report at the end of the program is a failure without a case.
    if [ "$status" -ne 0 ] && [ "$failures" -eq 0 ]; then
        failed=$((failed + 1))
    fi
    passed=$((passed + tests - failures - omitted))
    failed=$((failed + failures))
    skipped=$((skipped + omitted))
    if [ "$status" -eq 0 ] && [ "$failures" -eq 0 ] && [ "$tests" -gt "$omitted" ]; then
        echo "ok      $name: $((tests - omitted)) run, $omitted skipped"
    else
        if [ "$status" -eq 0 ] && [ "$failures" -eq 0 ]; then failed=$((failed + 1)); fi # nothing was run
        grep -E '\[  FAILED|Failure|ERROR: |SUMMARY: ' "$log" | head -n 40
        tail -n 20 "$log"
        echo "FAILED  $name: $failures of $tests (status $status); see $log"
    fi
}

finish() {
    echo "$passed passed, $failed failed, $skipped skipped"
    [ "$failed" -eq 0 ]
    exit
}
