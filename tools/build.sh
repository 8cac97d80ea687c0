# shellcheck shell=bash
# Builds a preset; the log is printed only where something goes wrong. Sourced; `root` is the
# checkout.

# build_preset PRESET TARGET...: everything when no target is named.
build_preset() {
    local preset=$1 log
    shift
    log=$root/build/$preset.log
    mkdir -p "$root/build"
    echo "building $preset"
    if (cd "$root" && cmake --preset "$preset" &&
        cmake --build --preset "$preset" ${1:+--target "$@"}) >"$log" 2>&1 </dev/null; then
        return 0
    fi
    tail -n 60 "$log"
    echo "building $preset failed; the whole log is $log" >&2
    return 1
}
