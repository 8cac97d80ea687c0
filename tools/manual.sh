#!/usr/bin/env bash
# Writes a manual page as plain text that every Windows shows.
#
#   tools/manual.sh PAGE TEXT
set -euo pipefail
groff -man -Tascii -P-cbou "$1" | sed 's/$/\r/' >"$2"
