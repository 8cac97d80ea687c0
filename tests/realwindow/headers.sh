#!/usr/bin/env bash
# Reads what the Windows programs' headers promise the system: a place at random in all of the
# address space, no running of data, a guarded stack, and nothing to load but Windows' own.
# The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

# What Windows itself brings along, as far as there was a use for it.
readonly windows_libraries=(advapi32.dll comctl32.dll comdlg32.dll gdi32.dll kernel32.dll msvcrt.dll
    ole32.dll oleacc.dll oleaut32.dll shell32.dll user32.dll winspool.drv)

headers_of() {
    x86_64-w64-mingw32-objdump -p "$1"
}

# promises PROGRAM FLAG
promises() {
    grep -q "^\s*$2\$" <<<"$(headers_of "$1")"
}

can_be_moved() {
    promises "$1" DYNAMIC_BASE && grep -q '\.reloc' <<<"$(x86_64-w64-mingw32-objdump -h "$1")"
}

# A guarded function ends in this message when its frame was written over.
guards_its_stack() {
    grep -q -a 'stack smashing detected' "$1"
}

imports_only_windows() {
    local library known=" ${windows_libraries[*]} " foreign=no
    while read -r library; do
        if [[ $known != *" ${library,,} "* ]]; then
            echo "$1 loads $library"
            foreign=yes
        fi
    done < <(headers_of "$1" | sed -n 's/^.*DLL Name: //p')
    [[ $foreign == no ]]
}

for program in Quorvel.exe qrv.exe; do
    path=$root/build/windows/Quorvel/$program
    check "$program lies at a place at random" can_be_moved "$path"
    check "$program lies anywhere in 64 bits" promises "$path" HIGH_ENTROPY_VA
    check "$program does not run data" promises "$path" NX_COMPAT
    check "$program guards its stack" guards_its_stack "$path"
    check "$program loads nothing but Windows' own" imports_only_windows "$path"
done
print_checks
