# shellcheck shell=bash
# The stages of a test run and their totals. Sourced; `root` is the checkout.

declare -a stage_lines=()
total_passed=0
total_failed=0

add_stage() {
    local name=$1 passed=$2 failed=$3
    stage_lines+=("$name: $passed passed, $failed failed")
    total_passed=$((total_passed + passed))
    total_failed=$((total_failed + failed))
}

# run_stage NAME COMMAND...: shows what the command prints and adds the totals of its last line,
# "N passed, N failed", to those of the run. A stage that does not come to its totals has failed.
run_stage() {
    local name=$1 log status=0 passed=0 failed=0
    shift
    log=$(mktemp)
    echo "== $name"
    "$@" 2>&1 </dev/null | tee "$log" || status=$?
    if [[ $(tail -n 1 "$log") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=${BASH_REMATCH[1]} failed=${BASH_REMATCH[2]}
    else
        echo "$name did not come to its end (exit code $status)"
        status=1
    fi
    if [[ $status -ne 0 && $failed -eq 0 ]]; then failed=1; fi
    rm "$log"
    add_stage "$name" "$passed" "$failed"
}

# prepare NAME COMMAND...: what all later stages need. Where it fails, the run ends here.
prepare() {
    local name=$1
    shift
    if "$@"; then return 0; fi
    echo "nothing that needs it could run"
    add_stage "$name" 0 1
    print_totals
    exit 1
}

# The plain totals; the exit code is 0 when everything passed.
print_totals() {
    echo
    printf '%s\n' "${stage_lines[@]}"
    echo "$total_passed passed, $total_failed failed"
    [[ $total_failed -eq 0 && $total_passed -gt 0 ]]
}

# The scenarios are a stage of their own. A test that was skipped has not passed.
unit_tests() {
    local log status=0 passed=0 failed=0 skipped
    log=$(mktemp)
    (cd "$root" && ctest --preset sanitized -j "$(nproc)" -E '^scenarios$') >"$log" 2>&1 ||
        status=$?
    grep -v -e ' Passed ' -e '^ *Start ' "$log" || true
    if [[ $(<"$log") =~ ([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+) ]]; then
        skipped=$(grep -c -E '\((Skipped|Disabled)\)$' "$log" || true)
        failed=$((BASH_REMATCH[1] + skipped))
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
