# shellcheck shell=bash
# Checks of a test script, counted. Sourced.

passed=0
failed=0

# check NAME COMMAND...: passes when the command succeeds, and all that it waits for comes.
check() {
    local name=$1
    shift
    bench_waited_in_vain=no
    if "$@" && [[ $bench_waited_in_vain == no ]]; then
        echo "$name: passed"
        passed=$((passed + 1))
    else
        echo "$name: FAILED"
        failed=$((failed + 1))
    fi
}

# The last line of a script; its exit code is 0 when everything passed.
print_checks() {
    echo "$passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}
