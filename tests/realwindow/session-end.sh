#!/usr/bin/env bash
# Windows wants to end the session: with the question answered, stopped by another program, inside a
# prompt sequence, and by force. The last line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tools/bench.sh
. "$root/tools/bench.sh"

readonly seconds_at_most=120

trap bench_close EXIT
bench_open session-end 1024x768 none
cd "$root"
bench_run "$seconds_at_most" build/windows/tests/realwindow/window_session_end.exe \
    build/windows/Quorvel
