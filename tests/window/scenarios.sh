#!/usr/bin/env bash
# Runs scenario files in the real window under Wine, each on a bench with the screen and the printer
# that it names; the benches run side by side. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_for_all=540

# SCREEN and PRINTER as the file names them, such as "1024x768 ready".
bench_of() {
    local screen=1024x768 printer=ready
    if grep -qE '^[[:space:]]*screen[[:space:]]+640x480' "$1"; then screen=640x480; fi
    if grep -qE '^[[:space:]]*printer[[:space:]]+none' "$1"; then printer=none; fi
    echo "$screen $printer"
}

run_on_bench() {
    local name=$1 screen=$2 printer=$3
    shift 3
    trap bench_close EXIT
    bench_open "$name" "$screen" "$printer"
    local arguments=(--program "Z:${root}/build/windows/Quorvel") file
    [[ -z $QUORVEL_PRINTING ]] || arguments+=(--printing "Z:$QUORVEL_PRINTING")
    for file in "$@"; do arguments+=("Z:$file"); done
    bench_run "$seconds_for_all" "$root/build/windows/tests/window/scenario_window.exe" \
        "${arguments[@]}"
}

# Splits the files over benches: every kind gets its own, the usual kind one for each processor.
main() {
    local logs file kind slot=0 name passed=0 failed=0 status=0
    logs=$(mktemp -d)
    declare -A files=()
    for file in "$@"; do
        kind=$(bench_of "$(realpath "$file")")
        name=${kind// /-}
        if [[ $kind == "1024x768 ready" ]]; then
            slot=$(((slot + 1) % $(nproc)))
            name+=-$slot
        fi
        files[$name]+="$(realpath "$file")"$'\n'
    done
    local names=() running=()
    for name in "${!files[@]}"; do
        local screen printer list
        IFS=- read -r screen printer _ <<<"$name"
        mapfile -t list <<<"${files[$name]%$'\n'}"
        (run_on_bench "$name" "$screen" "$printer" "${list[@]}") >"$logs/$name" 2>&1 &
        names+=("$name")
        running+=($!)
    done
    local index
    for index in "${!names[@]}"; do
        status=0
        wait "${running[$index]}" || status=$?
        add_totals "$logs/${names[$index]}" "$status" "$(wc -l <<<"${files[${names[$index]}]%$'\n'}")"
    done
    rm -r "$logs"
    echo "$passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}

# Adds what one bench came to. One that broke off has failed with all files that it did not pass.
add_totals() {
    local log=$1 status=$2 count=$3 last
    last=$(tail -n 1 "$log" | tr -d '\r')
    if [[ $last =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        sed '$d' "$log"
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
        return
    fi
    cat "$log"
    echo "the bench $(basename "$log") broke off (exit code $status)"
    local done_files
    done_files=$(grep -c ': passed' "$log" || true)
    passed=$((passed + done_files))
    failed=$((failed + count - done_files))
}

main "$@"
