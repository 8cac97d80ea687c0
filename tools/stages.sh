# shellcheck shell=bash
# The stages of a test run and their totals. Sourced; `root` is the checkout.

declare -a stage_lines=()
total_passed=0
total_failed=0

# run_stage NAME COMMAND...: shows what the command prints and adds the totals of its last line,
# "N passed, N failed", to those of the run. A stage that does not come to its totals has failed.
run_stage() {
    local name=$1 log status=0 passed failed
    shift
    log=$(mktemp)
    echo "== $name"
    "$@" 2>&1 </dev/null | tee "$log" || status=$?
    if [[ $(tail -n 1 "$log") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=${BASH_REMATCH[1]} failed=${BASH_REMATCH[2]}
    else
        passed=0 failed=1
        echo "$name did not come to its end (exit code $status)"
    fi
    if [[ $status -ne 0 && $failed -eq 0 ]]; then failed=1; fi
    rm "$log"
    stage_lines+=("$name: $passed passed, $failed failed")
    total_passed=$((total_passed + passed))
    total_failed=$((total_failed + failed))
}

# The plain totals; the exit code is 0 when everything passed.
print_totals() {
    echo
    printf '%s\n' "${stage_lines[@]}"
    echo "$total_passed passed, $total_failed failed"
    [[ $total_failed -eq 0 && $total_passed -gt 0 ]]
}

unit_tests() {
    local log status=0 passed=0 failed=0
    log=$(mktemp)
    # The scenarios are a stage of their own.
    (cd "$root" && ctest --preset sanitized -j "$(nproc)" -E '^scenarios$') >"$log" 2>&1 || status=$?
    grep -v -e ' Passed ' -e '^ *Start ' "$log" || true
    if [[ $(cat "$log") =~ ([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+) ]]; then
        failed=${BASH_REMATCH[1]}
        passed=$((BASH_REMATCH[2] - failed))
    fi
    rm "$log"
    echo "$passed passed, $failed failed"
    return "$status"
}

headless_scenarios() {
    "$root/build/sanitized/tests/scenario/scenario_headless" "$@"
}

window_scenarios() {
    "$root/tests/window/scenarios.sh" "$@"
}
