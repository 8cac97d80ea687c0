#!/usr/bin/env bash
# Counts what the program holds of the drawing system before and after many refreshes and many
# times New, in the real window. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_most=180

trap bench_close EXIT
bench_open handles 1024x768 none
cd "$root"
bench_run "$seconds_at_most" build/windows/tests/realwindow/window_handles.exe build/windows/Quorvel \
    'assets/samples/Algebra I - Period 3.qrv'
