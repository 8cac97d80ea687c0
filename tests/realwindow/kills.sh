#!/usr/bin/env bash
# kills.sh COUNT SHEET: kills the real program so often while it saves the sheet. The last line is
# "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_least=120 seconds_for_each=60

trap bench_close EXIT
bench_open kills 1024x768 none
bench_run $((seconds_at_least + seconds_for_each * $1)) \
    "$root/build/windows/tests/realwindow/window_kills.exe" "$root/build/windows/Quorvel" "$2" "$1"
