# shellcheck shell=bash
# Has sources read by a build of their own, each counted. Sourced; `root` is the checkout, `passed`
# and `failed` are what was counted so far.

# check_sources PRESET TARGET: has every source of the target read that is new or has changed since
# it was last in order.
check_sources() {
    local preset=$1 target=$2 build=$root/build/$1 log all broken status=0
    if ! (cd "$root" && cmake --preset "$preset") >"$build.log" 2>&1; then
        cat "$build.log"
        failed=$((failed + 1))
        return
    fi
    log=$(mktemp)
    ninja -C "$build" -k 0 "$target" >"$log" 2>&1 || status=$?
    grep -v -E '^(\[[0-9]+/[0-9]+\]|ninja: |[0-9]+ warnings|Suppressed|Use -header)' "$log" || true
    all=$(ninja -C "$build" -t commands "$target" | grep -c '\.cpp')
    broken=$(grep -c '^FAILED: ' "$log" || true)
    rm "$log"
    # What breaks off without a word has failed, too.
    if [[ $status -ne 0 && $broken -eq 0 ]]; then broken=1; fi
    passed=$((passed + all - broken))
    failed=$((failed + broken))
}
