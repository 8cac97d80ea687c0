#!/usr/bin/env bash
# Packs what is committed twice, from nothing, in two folders and without a compiler cache, and
# compares what came out byte by byte. The packages stay in build/package-twice. The last line is
# "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"
# shellcheck source=tests/realwindow/checks.sh
. "$root/tests/realwindow/checks.sh"

readonly twice=$root/build/package-twice
export CCACHE_DISABLE=1

# pack CLONE OUTPUT: both below $twice.
pack() {
    git clone -q "$root" "$twice/$1" && "$twice/$1/package" --output "$twice/$2"
}

is_complete() {
    (cd "$twice/one" && sha256sum --quiet -c SHA256SUMS) && [[ $(find "$twice/one" -type f | wc -l) -eq 5 ]]
}

same_bytes() {
    diff -r "$twice/one" "$twice/two"
}

main() {
    rm -rf "$twice"
    mkdir -p "$twice"
    check "the first time" pack first one
    check "the second time, elsewhere" pack a/second/place two
    check "all five files are there, with their sums" is_complete
    check "both times the same bytes" same_bytes
    rm -rf "$twice/first" "$twice/a"
    print_checks
}

main
