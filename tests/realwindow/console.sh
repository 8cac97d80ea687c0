#!/usr/bin/env bash
# Works qrv.exe as a shell of Windows starts it and compares it with the native qrv. The last line
# is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

readonly native=$root/build/sanitized/qrv

# The companion, in the folder that holds the class folder.
companion() {
    (cd "$folder" && "${wine[@]}" qrv.exe "$@" 2>"$bench_scratch/problems")
}

# native_prints WORD...: what the native program prints, with the names as Windows writes them.
native_prints() {
    (cd "$folder" && "$native" "$@" --settings . 2>/dev/null) | sed 's|Grades/|Grades\\|'
}

set_up() {
    folder=$WINEPREFIX/drive_c/Quorvel
    mkdir -p "$folder/Grades" "$folder/Out"
    cp "$root/build/windows/Quorvel/qrv.exe" "$folder/"
    cp "$root"/assets/samples/*.qrv "$folder/Grades/"
    cp "$folder/Grades/Algebra I - Period 3.qrv" "$folder/elsewhere.qrv"
    local minimum
    for minimum in 90 80 70 60 50 0 0; do
        printf '%b' "\\x$(printf %x "$minimum")" | dd bs=128 count=1 conv=sync status=none
    done >"$folder/GradingScale.qrv"
}

wildcards_are_expanded() {
    diff <(companion figures --format csv 'grades\*.QRV' | sed 's|grades|Grades|') \
        <(cd "$folder" && native_prints figures --format csv Grades/*.qrv)
}

its_own_folder_has_the_scale() {
    companion check elsewhere.qrv |
        grep -q '^scale: 90,80,70,60,50 (from .:\\Quorvel\\GradingScale.qrv)'
}

bytes_go_through_as_they_are() {
    companion export - --format json <"$folder/elsewhere.qrv" >"$bench_scratch/class.json"
    companion import - <"$bench_scratch/class.json" | cmp - "$folder/elsewhere.qrv"
}

the_input_is_not_the_output() {
    local status=0
    companion export elsewhere.qrv -o 'C:\QUORVEL\Elsewhere.QRV' || status=$?
    [[ $status -eq 2 ]] && grep -q 'it would replace what is read' "$bench_scratch/problems" &&
        cmp "$folder/elsewhere.qrv" "$folder/Out/before.qrv"
}

sheets_go_into_a_folder() {
    companion export 'Grades\*.qrv' -o Out &&
        [[ $(find "$folder/Out" -name '*.csv' | wc -l) -eq $(find "$folder/Grades" -name '*.qrv' | wc -l) ]]
}

a_device_takes_the_result() {
    companion figures elsewhere.qrv -o NUL && [[ ! -e $folder/NUL ]]
}

a_missing_sheet_is_told() {
    local status=0
    companion figures 'Grades\missing*.qrv' || status=$?
    [[ $status -eq 1 ]] && grep -q 'there is no such file' "$bench_scratch/problems"
}

main() {
    trap bench_close EXIT
    bench_open console 1024x768 none
    set_up
    cp "$folder/elsewhere.qrv" "$folder/Out/before.qrv"
    check "wildcards are expanded, and the figures are the native ones" wildcards_are_expanded
    check "its own folder has the scale" its_own_folder_has_the_scale
    check "bytes go through as they are" bytes_go_through_as_they_are
    check "the input is not the output, by whatever name" the_input_is_not_the_output
    check "sheets go into a folder" sheets_go_into_a_folder
    check "a device takes the result" a_device_takes_the_result
    check "a missing sheet is told" a_missing_sheet_is_told
    print_checks
}

main
