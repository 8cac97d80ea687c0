#!/usr/bin/env bash
# A teacher opens a class, types scores with and without the mouse, saves and leaves, with real mouse
# and key input from the X server; the saved file is compared byte by byte. The last line is "N passed, N failed".
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

# expect_score STUDENT SCORE: a text of two digits in the first assignment, before whose scores three
# records stand.
expect_score() {
    printf '\x08\x00\x02\x00%s\x00' "$2" |
        dd of="$bench_scratch/expected.qrv" bs=1 seek=$((($1 + 2) * 128)) conv=notrunc status=none
}

# entry_ends_at ROW X Y BUTTON: types a score into the row, clicks that place, and types on; what is
# typed then goes nowhere.
entry_ends_at() {
    teacher_click "$class" "$1" 1
    screen_settles
    write_text "$score"
    teacher_click_at "$class" "$2" "$3" "$4"
    screen_settles
    write_text 8
    screen_settles
}

saved_as_expected() {
    bench_wait_for cmp "$bench_scratch/expected.qrv" \
        "$WINEPREFIX/drive_c/$program_folder/Grades/$class"
}

# What the keys alone do: from the cell that was open last to the one below it.
type_without_mouse() {
    press F2
    screen_settles
    write_text 18
    press ctrl+Down
    screen_settles
    write_text 19
    press Return
    screen_settles
}

main() {
    local student
    trap bench_close EXIT
    bench_open real-input 1024x768 none
    cp "$root/assets/samples/$class" "$bench_scratch/expected.qrv"
    for student in {4..9}; do expect_score "$student" "$score"; done
    check "the window opens" teacher_start "$program_folder"
    check "keys open a class" teacher_open_class "$class"
    teacher_type_score "$class" 4 1 "$score"
    entry_ends_at 5 156 303 1 # on the assignments' scroll bar, which has nowhere to go back
    entry_ends_at 6 156 303 2
    entry_ends_at 7 70 100 3 # on the names
    entry_ends_at 8 70 5 3   # on a heading
    entry_ends_at 9 500 450 2
    press ctrl+s
    check "a clicked and typed score is saved, and nothing else is changed" saved_as_expected
    type_without_mouse
    expect_score 9 18
    expect_score 10 19
    press ctrl+s
    check "keys open cells and go from one to the next" saved_as_expected
    check "the menu's keys end the program" teacher_exit
    print_checks
}

main
