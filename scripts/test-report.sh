# Runs tests, counts and times them. To be sourced by test.sh, which sets KIVO_TEST_OUTPUT.

# A line "<passed> <failed> <skipped>" for each test.
counts="$KIVO_TEST_OUTPUT/counts"
touch "$counts"

# count <passed> <failed> <skipped>
count() {
    echo "$*" >>"$counts"
}

# check <name> <command>...: one test, its output shown when it fails.
check() {
    local name=$1 log start=$SECONDS
    shift
    log="$KIVO_TEST_OUTPUT/$(printf '%s' "$name" | tr -cs 'a-zA-Z0-9' '-').log"
    if "$@" >"$log" 2>&1 </dev/null; then
        count 1 0 0
        echo "ok      $name, $((SECONDS - start)) s"
    else
        count 0 1 0
        tail -n 60 "$log"
        echo "FAILED  $name, $((SECONDS - start)) s"
    fi
}

# run_tests <name> <command>...: a GoogleTest program, its cases counted one by one. What it draws goes to a folder of
# its own.
run_tests() {
    local name=$1 start=$SECONDS log xml status found
    shift
    mkdir -p "$KIVO_TEST_OUTPUT/$name"
    log="$KIVO_TEST_OUTPUT/$name.log"
    xml="$KIVO_TEST_OUTPUT/$name.xml"
    xml=${xml#"$PWD/"} # relative, so that Windows programs find it too
    KIVO_TEST_OUTPUT="$KIVO_TEST_OUTPUT/$name" GTEST_OUTPUT="xml:$xml" timeout 900 "$@" >"$log" 2>&1 </dev/null
    status=$?
    found=$(sed -n 's/.*<testsuites tests="\([0-9]*\)" failures="\([0-9]*\)".*/\1 \2/p' "$xml" 2>/dev/null | head -n 1)
    if [ -z "$found" ]; then # it did not live to write its report
        count 0 1 0
        tail -n 60 "$log"
        echo "FAILED  $name (status $status, no report), $((SECONDS - start)) s"
        return
    fi
    local tests=${found% *} failures=${found#* } omitted
    omitted=$(grep -c 'result="skipped"' "$xml")
    count $((tests - failures - omitted)) "$failures" "$omitted"
    if [ "$status" -eq 0 ] && [ "$failures" -eq 0 ] && [ "$tests" -gt "$omitted" ]; then
        echo "ok      $name: $((tests - omitted)) run, $omitted skipped, $((SECONDS - start)) s"
        return
    fi
    # A sanitizer's report at the end of the program is a failure without a case, and so is that nothing was run.
    [ "$failures" -gt 0 ] || count 0 1 0
    grep -E -A 12 'Failure$|ERROR: ' "$log" | head -n 120
    grep -E '\[  FAILED|SUMMARY: ' "$log" | head -n 40
    tail -n 20 "$log"
    echo "FAILED  $name: $failures of $tests (status $status), $((SECONDS - start)) s; see $log"
}

# at_once <function>...: each in a process of its own; what one of them does not live to say is a failure. Ctrl-C ends them
# all, which the shell would have them ignore in the background.
at_once() {
    local lane lanes=()
    trap 'trap - INT TERM; kill -TERM 0' INT
    for lane in "$@"; do
        ("$lane" && exit 0) &
        lanes+=($!)
    done
    for lane in "${lanes[@]}"; do
        wait "$lane" || {
            count 0 1 0
            echo "FAILED  a group of tests ended early"
        }
    done
}

finish() {
    local passed failed skipped
    read -r passed failed skipped < <(awk '{ p += $1; f += $2; s += $3 } END { print p + 0, f + 0, s + 0 }' "$counts")
    echo "$passed passed, $failed failed, $skipped skipped in $((SECONDS / 60)) min $((SECONDS % 60)) s"
    [ "$passed" -gt 0 ] && [ "$failed" -eq 0 ]
    exit
}
