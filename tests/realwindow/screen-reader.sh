#!/usr/bin/env bash
# Another process reads the window as a screen reader does, while scores change. The last line is
# "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_most=120

trap bench_close EXIT
bench_open screen-reader 1024x768 none
cd "$root"
bench_run "$seconds_at_most" build/windows/tests/realwindow/window_screen_reader.exe \
    build/windows/Quorvel
