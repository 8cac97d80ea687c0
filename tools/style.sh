#!/usr/bin/env bash
# Checks the layout of the code, looks for mistakes in it and in the scripts. What was in order and
# has not changed since is not looked at again. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

readonly stamps=build/style
# Where each platform's files are built, which tells what they include.
readonly native_build=build/sanitized
readonly windows_build=build/windows

code_files() {
    find . \( -name build -o -name out -o -name .git \) -prune -o \
        -name '*.[ch]pp' -print -o -name '*.h' -print | sort
}

scripts() {
    printf '%s\n' run test .ci/run
    # Sourced ones are looked at where they are used.
    find tools tests -name '*.sh' -perm -u+x
}

# A line for each object of a build: its source and every file of ours that the source includes.
dependencies() {
    ninja -C "$1" -t deps | awk -v root="$root/" '
        /^[^ ].*: #deps/ { if (line != "") print line; line = ""; next }
        /^    / {
            file = $0
            sub(/^ +/, "", file)
            if (file !~ /^\//) file = build "/" file
            if (index(file, root) == 1) line = line (line == "" ? "" : "\t") file
        }
        END { if (line != "") print line }' build="$root/$1"
}

is_in_order() {
    local stamp=$1 file
    shift
    [[ -e $stamp && ! .clang-tidy -nt $stamp ]] || return 1
    for file in "$@"; do
        [[ ! $file -nt $stamp ]] || return 1
    done
}

# Prints the sources of a build that need a look.
sources_to_check() {
    local build=$1 line files source
    while read -r line; do
        IFS=$'\t' read -r -a files <<<"$line"
        source=${files[0]#"$root/"}
        [[ $source == *.cpp && $source != build/* ]] || continue
        is_in_order "$stamps/$source" "${files[@]}" || echo "$source"
    done < <(dependencies "$build")
}

# What the cross-compiler knows by itself and clang-tidy has to be told.
windows_arguments() {
    printf '%s\n' --extra-arg-before=--target=x86_64-w64-mingw32
    x86_64-w64-mingw32-g++-posix -std=c++20 -E -v -x c++ /dev/null 2>&1 >/dev/null |
        sed -n '/search starts here/,/End of search/s/^ \(.*\)/--extra-arg=-isystem\1/p' |
        grep -v -e 'posix/include$' -e 'include-fixed$'
}

# How the native build compiles, but for the headers that g++ has compiled before, in a form that
# clang-tidy cannot read.
write_native_commands() {
    sed 's/ -Winvalid-pch -include [^ ]*//' "$native_build/compile_commands.json" \
        >"$stamps/compile_commands.json"
}

check_source() {
    local commands=$1 source=$2 output
    shift 2
    if output=$(clang-tidy --quiet -p "$commands" "$@" "$source" 2>/dev/null); then
        mkdir -p "$stamps/$(dirname "$source")"
        touch "$stamps/$source"
        echo "$source: in order" >>"$stamps/result"
    else
        printf '%s\n' "${output:-$source: clang-tidy broke off}"
        echo "$source: FAILED" >>"$stamps/result"
    fi
}

check_sources() {
    local commands=$1
    shift
    export root stamps
    export -f check_source
    sort -u | xargs -r -P "$(nproc)" -I '{}' bash -c 'check_source "$@"' _ "$commands" '{}' "$@"
}

check_mistakes() {
    local native windows arguments
    native=$(sources_to_check "$native_build")
    # What both platforms build was looked at in the native build.
    windows=$(sources_to_check "$windows_build" |
        grep -e '^platform/win32/' -e '^tests/realwindow/' -e '^app/' || true)
    mapfile -t arguments < <(windows_arguments)
    write_native_commands
    check_sources "$stamps" <<<"$native"
    windows=$(comm -23 <(sort -u <<<"$windows") <(sort -u <<<"$native"))
    check_sources "$windows_build" "${arguments[@]}" <<<"$windows"
}

main() {
    local passed=0 failed=0 kinds=("layout of the code" "scripts")
    mkdir -p "$stamps"
    : >"$stamps/result"
    if code_files | xargs clang-format --dry-run -Werror; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: ${kinds[0]} (clang-format -i FILE mends it)"
    fi
    if scripts | xargs shellcheck -x; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: ${kinds[1]}"
    fi
    check_mistakes
    passed=$((passed + $(grep -c ': in order$' "$stamps/result" || true)))
    failed=$((failed + $(grep -c ': FAILED$' "$stamps/result" || true)))
    echo "$passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}

main
