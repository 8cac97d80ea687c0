# shellcheck shell=bash
# Has sources read by a build of their own, each counted. Sourced; `root` is the checkout, `passed`
# and `failed` are what was counted so far.

# check_sources PRESET TARGET: has every source of the target read that is new or has changed since
# it was last in order. What Ninja would still have to do afterwards was not in order.
check_sources() {
    local preset=$1 target=$2 build=$root/build/$1 all left
    if ! (cd "$root" && cmake --preset "$preset") >"$build.log" 2>&1; then
        cat "$build.log"
        failed=$((failed + 1))
        return
    fi
    ninja -C "$build" -k 0 "$target" 2>&1 |
        grep -v -E '^(\[[0-9]+/[0-9]+\]|ninja: |[0-9]+ warnings|Suppressed|Use -header)' || true
    all=$(ninja -C "$build" -t commands "$target" | grep -c '\.cpp')
    left=$(ninja -C "$build" -n "$target" | grep -c 'Building CXX' || true)
    passed=$((passed + all - left))
    failed=$((failed + left))
}
