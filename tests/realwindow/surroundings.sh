#!/usr/bin/env bash
# What is around the program: a floppy drive that is there or not, a print queue that takes no jobs.
# The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"
# shellcheck source=tools/teacher.sh
. "$root/tools/teacher.sh"
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

readonly program_folder=Surroundings
readonly class='Algebra I - Period 3.qrv'
readonly other_class='World History - Period 5.qrv'

insert_disk() {
    mkdir -p "$bench_scratch/floppy"
    ln -s "$bench_scratch/floppy" "$WINEPREFIX/dosdevices/a:"
}

remove_disk() {
    rm "$WINEPREFIX/dosdevices/a:"
}

# back_up MNEMONIC: the entry of the Options menu with that letter, and OK to its question.
back_up() {
    press alt+o
    screen_settles
    press "$1"
    wait_for_window Backup
    press Return
    bench_wait_for window_is_closed Backup
    screen_settles
}

copied_whole() {
    bench_wait_for cmp "$root/assets/samples/$1" "$bench_scratch/floppy/$1"
}

nothing_on_the_disk() {
    [[ -z $(ls "$bench_scratch/floppy") ]]
}

# Asks for the assignment report; a box says that the printer failed.
print_is_refused() {
    press ctrl+p
    wait_for_window 'Print Method'
    write_text 4
    press Return
    wait_for_window "$program_title"
    press Return
    bench_wait_for window_is_closed "$program_title"
}

no_job_came_out() {
    [[ -z $(ls "$QUORVEL_PRINTING/out") && -z $(lpstat -o) ]]
}

sheet_is_untouched() {
    cmp "$root/assets/samples/$class" "$WINEPREFIX/drive_c/$program_folder/Grades/$class"
}

try_the_floppy_drive() {
    insert_disk
    check "the open file can be backed up" back_up b
    check "its copy is whole" copied_whole "$class"
    echo "an older copy" >"$bench_scratch/floppy/$class"
    check "all files can be backed up" back_up l
    check "the open file is among them, over its older copy" copied_whole "$class"
    check "a file that is not open is among them" copied_whole "$other_class"
    rm "$bench_scratch"/floppy/*
    remove_disk
    check "a backup without a drive says nothing" back_up b
    check "and copies nothing" nothing_on_the_disk
}

try_the_print_queue() {
    cupsreject "$print_queue"
    check "a queue that takes no jobs is reported" print_is_refused
    check "nothing was printed" no_job_came_out
    cupsaccept "$print_queue"
    check "the next job is printed" teacher_print 4 1
}

main() {
    trap bench_close EXIT
    bench_open surroundings 1024x768 ready
    check "the window opens" teacher_start "$program_folder"
    check "a class is opened" teacher_open_class "$class"
    try_the_floppy_drive
    try_the_print_queue
    check "nothing is left to be saved" teacher_exit
    check "the sheet's file is untouched" sheet_is_untouched
    print_checks
}

main
