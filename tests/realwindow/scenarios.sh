#!/usr/bin/env bash
# Runs scenario files in the real window under Wine, each on a bench with the screen and the printer
# that it names; three benches work side by side. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly usual_bench='1024x768 ready'
readonly benches_at_once=3
# A run that hangs is ended after this time.
readonly seconds_at_least=60 seconds_for_each=15

# The screen and the printer that the file names before it starts the program.
bench_of() {
    awk '
        BEGIN { screen = "1024x768"; printer = "ready" }
        /^ *start/ { exit }
        $1 == "screen" { screen = $2 }
        # What needs a printer that fails is left to the headless run.
        $1 == "printer" { printer = $2 == "none" ? "none" : "ready" }
        END { print screen, printer }' "$1" 2>/dev/null || echo "$usual_bench"
}

# run_on_bench LIST SCREEN PRINTER FILE...
run_on_bench() {
    local list=$1 screen=$2 printer=$3
    shift 3
    trap 'echo "$?" >"$statuses/$list"; bench_close' EXIT
    trap 'exit 143' TERM
    bench_open "scenarios-$list" "$screen" "$printer"
    local arguments=(--program "$root/build/windows/Quorvel")
    [[ -z $QUORVEL_PRINTING ]] || arguments+=(--printing "$QUORVEL_PRINTING")
    bench_run $((seconds_at_least + seconds_for_each * $#)) \
        "$root/build/windows/tests/realwindow/scenario_window.exe" "${arguments[@]}" "$@"
}

# Splits the files into lists, one for each run on a bench: $lists/SCREEN-PRINTER-NUMBER. Most of the
# files need the usual bench; it gets a list for each run that works at the same time.
split_files() {
    local file bench number=0
    for file in "$@"; do
        bench=$(bench_of "$file")
        if [[ $bench == "$usual_bench" ]]; then number=$(((number + 1) % benches_at_once)); fi
        printf '%s\n' "$file" >>"$lists/${bench/ /-}-$number"
    done
}

# Runs the lists, so many at once, the longest first.
run_lists() {
    local list screen printer files running=0
    while read -r _ list; do
        if ((running == benches_at_once)); then
            wait -n || true
            running=$((running - 1))
        fi
        IFS=- read -r screen printer _ <<<"$list"
        mapfile -t files <"$lists/$list"
        (run_on_bench "$list" "$screen" "$printer" "${files[@]}") >"$logs/$list" 2>&1 &
        running=$((running + 1))
    done < <(cd "$lists" && grep -c '' -- * /dev/null | sed 's/\(.*\):\(.*\)/\2 \1/' |
        grep -v /dev/null | sort -rn)
    wait
}

# Adds what one list came to. Where a run broke off, what it did not come to has failed.
add_totals() {
    local list=$1 log=$logs/$1 last
    last=$(tail -n 1 "$log")
    if [[ $last =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        sed '$d' "$log"
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
        return
    fi
    cat "$log"
    local files finished
    files=$(grep -c '' "$lists/$list")
    finished=$(grep -c -E ': passed(,|$)' "$log" || true)
    echo "the run on the bench $list broke off after $finished of $files files," \
        "exit code $(cat "$statuses/$list")"
    passed=$((passed + finished))
    failed=$((failed + files - finished))
}

# Where this run is broken off, so are its benches.
end_benches() {
    local benches
    mapfile -t benches < <(jobs -p)
    [[ ${#benches[@]} -eq 0 ]] || kill "${benches[@]}" 2>/dev/null || true
    wait
}

main() {
    local list
    trap end_benches EXIT
    trap 'exit 143' TERM
    lists=$(mktemp -d)
    logs=$(mktemp -d)
    statuses=$(mktemp -d)
    passed=0
    failed=0
    split_files "$@"
    run_lists
    for list in "$lists"/*; do add_totals "$(basename "$list")"; done
    rm -r "$lists" "$logs" "$statuses"
    echo "$passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}

main "$@"
