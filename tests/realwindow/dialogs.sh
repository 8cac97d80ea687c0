#!/usr/bin/env bash
# What only a window can do wrong with a dialog: its keys, its size, the cursor behind it. The last
# line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_most=300

trap bench_close EXIT
bench_open dialogs 640x480 none
cd "$root"
bench_run "$seconds_at_most" build/windows/tests/realwindow/window_dialogs.exe \
    build/windows/Quorvel 'assets/samples/Algebra I - Period 3.qrv'
