# shellcheck shell=bash
# Tells how a command is used: what stands at the top of its file. Sourced.

# usage ARGUMENT...: ends the command, with success where help was asked for.
usage() {
    if [[ ${1-} == --help || ${1-} == -h ]]; then
        sed -n '2,/^set -e/s/^#\( \|$\)//p' "$0"
        exit 0
    fi
    sed -n '2,/^set -e/s/^#\( \|$\)//p' "$0" >&2
    exit 2
}
