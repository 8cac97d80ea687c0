#!/usr/bin/env bash
# install.sh [FOLDER]: installs the program as a teacher and as a school does, uses it with real
# keys, updates it and removes it again, under Wine. The installer is that of the packages in
# FOLDER, or is made from what ./test has built. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"
# shellcheck source=tools/teacher.sh
. "$root/tools/teacher.sh"
# shellcheck source=packaging/pack.sh
. "$root/packaging/pack.sh"
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

readonly class='Algebra I - Period 3.qrv' other_class='World History - Period 5.qrv'
readonly installed_app='Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvel'
readonly next_version=99.1
readonly nsis_icon=/usr/share/nsis/Contrib/Graphics/Icons/modern-install.ico
# What the installer ends with where the program runs.
readonly running=2

# take_installer FOLDER: that of finished packages.
take_installer() {
    unzip -q "$1/Quorvel-$version-portable.zip" -d "$bench_scratch" &&
        cp "$1/Quorvel-$version-setup.exe" "$bench_scratch/this-setup.exe"
}

make_installer() {
    stage_windows "$root/build/windows" "$bench_scratch/Quorvel" &&
        pack_installer "$bench_scratch/Quorvel" "$root/build/windows/assets/Quorvel.ico" \
            "$version" "$bench_scratch/this-setup.exe"
}

# Any icon does.
make_next_installer() {
    cp -r "$bench_scratch/Quorvel" "$bench_scratch/next"
    echo "the next version's guide" >"$bench_scratch/next/HowToUseQRV.txt"
    pack_installer "$bench_scratch/next" "$nsis_icon" "$next_version" \
        "$bench_scratch/next-setup.exe"
}

# setup WHICH ARGUMENT...: its exit code is the installer's.
setup() {
    local which=$1
    shift
    "${wine[@]}" "$bench_scratch/$which-setup.exe" "$@" >/dev/null 2>&1 </dev/null
}

entry_of_installed_apps() {
    "${wine[@]}" reg query "$1\\$installed_app" /v "$2" 2>/dev/null </dev/null >"$bench_scratch/entry"
    tr -d '\r' <"$bench_scratch/entry" | sed -n 's/.*REG_[A-Z]* *//p'
}

version_is_installed() {
    [[ $(entry_of_installed_apps "$1" DisplayVersion) == "$2" ]]
}

nothing_is_registered() {
    [[ -z $(entry_of_installed_apps HKCU DisplayName)$(entry_of_installed_apps HKLM DisplayName) ]] &&
        ! "${wine[@]}" reg query 'HKCR\.qrv' >/dev/null 2>&1 </dev/null
}

all_files_are_there() {
    local name
    while read -r name; do
        cmp "$bench_scratch/Quorvel/$name" "$1/$name" || return
    done < <(cd "$bench_scratch/Quorvel" && find . -type f)
}

no_file_of_ours_is_left() {
    local name
    while read -r name; do
        [[ ! -e $1/$name ]] || return
    done < <(cd "$bench_scratch/next" && find . -type f && echo ./Uninstall.exe && echo ./Samples)
}

programs_of_the_bench() {
    local process
    for process in $(pgrep -x Quorvel.exe); do
        if grep -qsz "^WINEPREFIX=$WINEPREFIX\$" "/proc/$process/environ"; then echo "$process"; fi
    done
}

program_has_ended() {
    [[ -z $(programs_of_the_bench) ]]
}

# What a teacher sees of the installer: two pages and the Enter key.
install_with_keys() {
    "${wine[@]}" "$bench_scratch/this-setup.exe" >/dev/null 2>&1 </dev/null &
    wait_for_window 'Quorvel Setup *'
    press Return
    bench_wait_for version_is_installed HKCU "$version"
    screen_settles
    press Return
    wait_for_window "$program_title"
}

both_samples_are_in_grades() {
    cmp "$root/assets/samples/$class" "$folder/Grades/$class" &&
        cmp "$root/assets/samples/$other_class" "$folder/Grades/$other_class"
}

class_is_saved() {
    ! cmp -s "$root/assets/samples/$class" "$folder/Grades/$class"
}

use_it() {
    teacher_open_class "$class" || return
    teacher_type_score "$class" 4 1 17
    press ctrl+s
    bench_wait_for class_is_saved || return
    cp "$folder/Grades/$class" "$folder/LS.qrv" "$bench_scratch/"
    rm "$folder/Grades/$other_class"
}

update_is_refused() {
    local status=0
    setup next /S || status=$?
    [[ $status -eq $running ]] && version_is_installed HKCU "$version" &&
        all_files_are_there "$folder"
}

leave_the_program() {
    press alt+f
    screen_settles
    press x
    wait_for_window 'Exit Check' || return
    press Return
    bench_wait_for program_has_ended
}

# The class as it was saved, the list of recent files, and no sample brought back.
classes_and_settings_are_kept() {
    cmp "$bench_scratch/$class" "$folder/Grades/$class" &&
        cmp "$bench_scratch/LS.qrv" "$folder/LS.qrv" && [[ ! -e $folder/Grades/$other_class ]]
}

starts_from_the_start_menu() {
    "${wine[@]}" start "$1\\Quorvel.lnk" >/dev/null 2>&1 </dev/null
    wait_for_window "$program_title" || return
    leave_the_program
}

says_that_a_bitmap_is_missing() {
    mv "$folder/7.bmp" "$bench_scratch/"
    "${wine[@]}" "$folder/Quorvel.exe" >/dev/null 2>&1 </dev/null &
    wait_for_window "$program_title" || return
    press Return
    bench_wait_for program_has_ended || return
    mv "$bench_scratch/7.bmp" "$folder/"
}

uninstall_with_keys() {
    local uninstaller
    uninstaller=$(entry_of_installed_apps HKCU UninstallString | tr -d '"')
    "${wine[@]}" "$uninstaller" >/dev/null 2>&1 </dev/null &
    wait_for_window 'Quorvel Uninstall *'
    press Return
    # The box that says what was kept.
    bench_wait_for no_file_of_ours_is_left "$folder" || return
    screen_settles
    press Return
    screen_settles
    press Return
    bench_wait_for window_is_closed 'Quorvel Uninstall *'
}

as_a_teacher() {
    local folder=$WINEPREFIX/drive_c/users/$USER/AppData/Local/Programs/Quorvel
    local menu="C:\\users\\$USER\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs"
    check "the Enter key installs and starts the program" install_with_keys
    check "all files are there" all_files_are_there "$folder"
    check "the samples are among the classes" both_samples_are_in_grades
    check "a score is typed and saved" use_it
    check "an update is refused while the program runs" update_is_refused
    check "the program is left" leave_the_program
    check "an update is installed" setup next /S
    check "and named among the installed apps" version_is_installed HKCU "$next_version"
    check "with its files" cmp "$bench_scratch/next/HowToUseQRV.txt" "$folder/HowToUseQRV.txt"
    check "classes and settings are kept" classes_and_settings_are_kept
    check "the Start menu starts the program" starts_from_the_start_menu "$menu"
    check "a missing bitmap is reported and ends the program" says_that_a_bitmap_is_missing
    check "the Enter key removes the program" uninstall_with_keys
    check "no file of the program is left" no_file_of_ours_is_left "$folder"
    check "classes and settings are left" classes_and_settings_are_kept
    check "nothing is registered any more" nothing_is_registered
}

rights_are_given_to_users() {
    grep -F icacls.exe "$bench_scratch/processes" |
        grep -qF '\"C:\\Quorvel\" /grant *S-1-5-32-545:(OI)(CI)M'
}

install_for_all() {
    WINEDEBUG=+process "${wine[@]}" "$bench_scratch/this-setup.exe" /S /ALLUSERS '/D=C:\Quorvel' \
        >"$bench_scratch/processes" 2>&1 </dev/null
}

only_for_all() {
    version_is_installed HKLM "$version" && [[ -z $(entry_of_installed_apps HKCU DisplayName) ]]
}

uninstall_silently() {
    "${wine[@]}" 'C:\Quorvel\Uninstall.exe' /S >/dev/null 2>&1 </dev/null
    bench_wait_for nothing_is_registered
}

as_a_school() {
    local folder=$WINEPREFIX/drive_c/Quorvel
    check "an administrator installs for all without a window" install_for_all
    check "all files are there for all" all_files_are_there "$folder"
    check "it is an installed app of the computer, not of a person" only_for_all
    check "users may write into the folder" rights_are_given_to_users
    check "the Start menu of all starts the program" starts_from_the_start_menu \
        'C:\ProgramData\Microsoft\Windows\Start Menu\Programs'
    check "it is removed without a window" uninstall_silently
    check "with its files for all" no_file_of_ours_is_left "$folder"
    check "and the classes of all are left" both_samples_are_in_grades
}

main() {
    : "${USER:=$(id -un)}"
    trap bench_close EXIT
    bench_open install 1024x768 none
    if [[ $# -gt 0 ]]; then
        check "the packages have an installer" take_installer "$1"
    else
        check "an installer is made" make_installer
    fi
    check "and that of the next version" make_next_installer
    as_a_teacher
    as_a_school
    print_checks
}

main "$@"
