#!/usr/bin/env bash
# Checks the layout of the code, looks for mistakes in it and in the scripts. A source that was in
# order and has not changed since is not read again; the tests' sources are left to ./analyze, since
# they take as long as all else. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
# shellcheck source=tools/reading.sh
. "$root/tools/reading.sh"

code_files() {
    find . \( -name build -o -name out -o -name .git \) -prune -o \
        -name '*.[ch]pp' -print -o -name '*.h' -print | sort
}

scripts() {
    printf '%s\n' .ci/run
    # The commands.
    find . -maxdepth 1 -type f -perm -u+x
    # Sourced ones are looked at where they are used.
    find tools tests -name '*.sh' -perm -u+x
}

check_layout() {
    code_files | xargs clang-format --dry-run -Werror
}

check_scripts() {
    scripts | xargs shellcheck -x
}

# check NAME HINT COMMAND...
check() {
    local name=$1 hint=$2
    shift 2
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: $name$hint"
    fi
}

main() {
    passed=0 failed=0
    check "layout of the code" " (clang-format -i FILE mends it)" check_layout
    check "scripts" "" check_scripts
    check_sources checked checked_programs
    # What both platforms build is looked at in the native build.
    check_sources checked-windows checked_windows_programs
    echo "$passed passed, $failed failed"
    [[ $failed -eq 0 ]]
}

main
