#!/usr/bin/env bash
# browser.sh [ARGUMENT...]: fetches axe-core, of the version and with the checksum that
# package-lock.json has, and opens qrv's pages in Chromium. The arguments are for browser.py, such as
# --pictures FOLDER, which keeps what was seen; docs/page.png is the front.png of these. The last
# line is "N passed, N failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

readonly axe=$root/build/axe

mkdir -p "$axe"
cp "$root"/tests/page/package*.json "$axe/"
npm --prefix "$axe" ci --ignore-scripts --no-audit --no-fund --silent
exec "$root/tests/page/browser.py" --qrv "$root/build/native/qrv" \
    --axe "$axe/node_modules/axe-core/axe.min.js" "$@"
