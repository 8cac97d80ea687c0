#!/usr/bin/env bash
# A teacher opens a class, types a score, saves and leaves, with real mouse and key input from the X
# server; the saved file is compared byte by byte. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"
# shellcheck source=tools/teacher.sh
. "$root/tools/teacher.sh"
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

readonly program_folder='Real Input'
readonly class='Algebra I - Period 3.qrv'
readonly score=17

# The sample with the text "17" as the fourth student's score in the first assignment, which is
# record 7: three records stand before the scores.
expected_file() {
    cp "$root/assets/samples/$class" "$1"
    printf '\x08\x00\x02\x00%s' "$score" |
        dd of="$1" bs=1 seek=$((6 * 128)) conv=notrunc status=none
}

saved_as_expected() {
    bench_wait_for cmp "$bench_scratch/expected.qrv" \
        "$WINEPREFIX/drive_c/$program_folder/Grades/$class"
}

main() {
    trap bench_close EXIT
    bench_open real-input 1024x768 none
    expected_file "$bench_scratch/expected.qrv"
    check "the window opens" teacher_start "$program_folder"
    check "keys open a class" teacher_open_class "$class"
    teacher_type_score "$class" 4 1 "$score"
    press ctrl+s
    check "a clicked and typed score is saved, and nothing else is changed" saved_as_expected
    check "the menu's keys end the program" teacher_exit
    print_checks
}

main
