# shellcheck shell=bash
# The stages of a test run and their totals. Sourced; `root` is the checkout.

# A line for each stage that came to its end, from wherever it ran.
stage_totals=$(mktemp)
# The process group of the stages that run beside others.
stages_beside=

end_stages() {
    [[ -z $stages_beside ]] || kill -- -"$stages_beside" 2>/dev/null || true
    wait
    rm "$stage_totals"
}
trap end_stages EXIT
trap 'exit 143' TERM INT

add_stage() {
    local name=$1 passed=$2 failed=$3
    echo "$name: $passed passed, $failed failed" >>"$stage_totals"
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

# run_beside FUNCTION OTHER: runs both, each with the stages that it names, one beside the other.
# What the first prints is shown when both are done.
run_beside() {
    local log status=0
    log=$(mktemp)
    # With monitoring, what runs in the background is a process group and can be ended as a whole.
    set -m
    "$1" >"$log" 2>&1 &
    stages_beside=$!
    set +m
    "$2"
    wait "$stages_beside" || status=$?
    stages_beside=
    cat "$log"
    rm "$log"
    if [[ $status -ne 0 ]]; then
        echo "$1 broke off (exit code $status)"
        add_stage "$1" 0 1
    fi
}

# The plain totals; the exit code is 0 when everything passed.
print_totals() {
    echo
    cat "$stage_totals"
    awk -F '[:,]' '{ passed += $(NF - 1); failed += $NF }
        END { print passed + 0 " passed, " failed + 0 " failed"; exit failed > 0 || passed == 0 }' \
        "$stage_totals"
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
    "$root/tests/realwindow/scenarios.sh" "$@"
}
