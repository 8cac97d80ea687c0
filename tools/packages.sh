# shellcheck shell=bash
# What Debian 12 lacks for building and testing, and how it gets here. Sourced.

readonly headless_packages=(cmake g++ libcli11-dev libgtest-dev libpng-dev ninja-build
    nlohmann-json3-dev parallel python3)
readonly style_packages=(clang clang-format clang-tidy shellcheck)
readonly fuzz_packages=(clang libclang-rt-14-dev)
readonly coverage_packages=(gcovr)
readonly windows_packages=(clang g++-mingw-w64-x86-64-posix groff-base lld)
readonly speed_packages=(gnumeric libbenchmark-dev time)
readonly packaging_packages=(nsis unzip zip)
readonly wine_packages=(fonts-liberation fonts-wine wine wine64 xvfb)
readonly printing_packages=(cups-client cups-daemon cups-filters ghostscript mupdf-tools
    printer-driver-cups-pdf)
readonly input_packages=(imagemagick x11-utils xdotool)

readonly browser_packages=(chromium chromium-driver fonts-liberation poppler-utils python3-selenium)

# Runs a command with the rights that installing needs.
as_administrator() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "installing needs root, or sudo: $*" >&2
        return 1
    fi
}

is_installed() {
    [[ $(dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null) == ii* ]]
}

# Installs those of the named packages that are missing.
install_packages() {
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    echo "installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    as_administrator apt-get -q update </dev/null >&2
    as_administrator env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y --no-install-recommends install "${missing[@]}" </dev/null >&2
}

# What opens pages in a browser. Where node came from elsewhere it has brought npm.
install_browser() {
    install_packages "${browser_packages[@]}"
    command -v npm >/dev/null || install_packages npm
}
