#!/usr/bin/env bash
# Measures the real window beside an empty one, on a bench of its own.
#
#   window.sh MAKE_CLASSES QRV      the native programs that make the classes and what is printed
#
# Prints one measurement a line: what was done, whose it is ("ours" or "peer"), and microseconds or
# bytes, with tabs between them.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_most=600
readonly windows=$root/build/windows
readonly printed='assets/samples/Algebra I - Period 3.qrv'

main() {
    local make_classes=$1 qrv=$2
    trap bench_close EXIT
    # Two windows have room side by side.
    bench_open speed 1600x1200 ready >&2
    "$make_classes" "$bench_scratch/typical" 1 35 40
    "$make_classes" "$bench_scratch/large" 1 1000 200
    cd "$root"
    "$qrv" report 1 "$printed" >"$bench_scratch/report.txt"
    bench_run "$seconds_at_most" "$windows/tests/speed/window/window_speed.exe" "$windows/Quorvel" \
        "$windows/tests/speed/window/empty_window.exe" "$QUORVEL_PRINTING" \
        "$bench_scratch/typical/1.qrv" "$bench_scratch/large/1.qrv" "$printed" \
        "Z:$bench_scratch/report.txt"
}

main "$@"
