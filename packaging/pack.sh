# shellcheck shell=bash
# Makes the packages. Sourced; `root` is the checkout.

readonly packing=$root/build/package

# The one version, and the date that every packed file bears: that of the version in CHANGELOG.md.
version=$(sed -n 's/^project(Quorvel VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt")
release_date=$(sed -n "s/^## ${version//./\\.} (\(.*\))\$/\1/p" "$root/CHANGELOG.md")
if [[ -z $version || -z $release_date ]]; then
    echo "CHANGELOG.md has no date for version $version" >&2
    exit 1
fi
readonly version release_date

# build_for_packing PRESET TARGET...: from nothing, in a folder of its own.
build_for_packing() {
    local preset=$1 log=$packing/$1.log
    shift
    echo "building $preset"
    if (cd "$root" && cmake --preset "$preset" -B "$packing/$preset" &&
        cmake --build "$packing/$preset" --target "$@") >"$log" 2>&1 </dev/null; then
        return 0
    fi
    tail -n 60 "$log" >&2
    return 1
}

# components_of PACKAGE...: the lines of the table that belong to any of them.
components_of() {
    local name package licence inside wanted
    grep -v '^#' "$root/packaging/components.txt" | while IFS='|' read -r name package licence inside; do
        for wanted in "$@"; do
            if [[ " $inside " == *" $wanted "* ]]; then
                echo "${name% }|$(tr -d ' ' <<<"$package")|$(xargs <<<"$licence")"
                break
            fi
        done
    done
}

# write_notices PACKAGE...: the notices of all that is linked in, as their packages bring them.
write_notices() {
    local package line
    line=$(printf '=%.0s' {1..78})
    echo "Quorvel contains work of others. These are their notices and licences."
    components_of "$@" | cut -d '|' -f 2 | sort -u | while read -r package; do
        printf '\n%s\n' "$line"
        components_of "$@" | grep -F "|$package|" | cut -d '|' -f 1,3 | sed 's/|/: /'
        printf '%s\n\n' "$line"
        cat "/usr/share/doc/$package/copyright"
    done
}

# stage_windows BUILD FOLDER: what is packed, as it will lie there, all of one date.
stage_windows() {
    local build=$1 folder=$2
    cmake --install "$build" --prefix "$folder" >/dev/null
    write_notices windows setup | sed 's/$/\r/' >"$folder/Notices.txt"
    date_files "$folder"
}

stage_linux() {
    local build=$1 folder=$2
    cmake --install "$build" --prefix "$folder" >/dev/null
    write_notices linux >"$folder/NOTICES"
    date_files "$folder"
}

date_files() {
    find "$1" -exec chmod u=rwX,go=rX '{}' + -exec touch -d "$release_date 00:00 UTC" '{}' +
}

# pack_zip FOLDER FILE: the folder with its name.
pack_zip() {
    local folder=$1 file=$2
    (cd "$(dirname "$folder")" && find "$(basename "$folder")" | LC_ALL=C sort |
        TZ=UTC zip -q -X -9 -@ "$file")
}

pack_tar() {
    local folder=$1 file=$2
    tar -C "$(dirname "$folder")" --sort=name --owner=0 --group=0 --numeric-owner --format=ustar \
        -cf - "$(basename "$folder")" | gzip -n -9 >"$file"
}

# What the uninstaller removes: every file that was packed, and then its folder.
write_removals() {
    local folder=$1
    (cd "$folder" && find . -type f | LC_ALL=C sort | sed 's|^\./||; s|/|\\|g' |
        sed 's|.*|Delete "$INSTDIR\\&"|')
    (cd "$folder" && find . -mindepth 1 -type d | LC_ALL=C sort -r | sed 's|^\./||; s|/|\\|g' |
        sed 's|.*|RMDir "$INSTDIR\\&"|')
}

# pack_installer FOLDER ICON VERSION FILE
pack_installer() {
    local folder=$1 icon=$2 of_version=$3 file=$4 log status=0
    write_removals "$folder" >"$folder.removals"
    log=$(makensis -V2 -WX "-DVERSION=$of_version" "-DFOLDER=$folder" "-DFILE=$file" \
        "-DREMOVALS=$folder.removals" "-DICON=$icon" \
        "-DSIZE=$(du -sk --apparent-size "$folder" | cut -f 1)" \
        "$root/packaging/Quorvel.nsi" 2>&1 </dev/null) || status=$?
    [[ $status -eq 0 ]] || echo "$log" >&2
    return "$status"
}

spdx_package() {
    local id=$1 name=$2 its_version=$3 licence=$4 file=$5
    printf '\nPackageName: %s\nSPDXID: SPDXRef-%s\nPackageVersion: %s\n' "$name" "$id" "$its_version"
    if [[ -n $file ]]; then
        printf 'PackageFileName: %s\nPackageChecksum: SHA256: %s\n' "$(basename "$file")" \
            "$(sha256sum "$file" | cut -d ' ' -f 1)"
    fi
    printf '%s\n' 'PackageDownloadLocation: NOASSERTION' 'FilesAnalyzed: false' \
        "PackageLicenseConcluded: $licence" "PackageLicenseDeclared: $licence" \
        'PackageCopyrightText: NOASSERTION'
}

# Each of our packages, and behind it what it contains.
write_spdx() {
    local output=$1 id file contents name package licence component
    printf '%s\n' 'SPDXVersion: SPDX-2.3' 'DataLicense: CC0-1.0' 'SPDXID: SPDXRef-DOCUMENT' \
        "DocumentName: Quorvel-$version" "DocumentNamespace: urn:quorvel:$version:$release_date" \
        'Creator: Tool: package' "Created: ${release_date}T00:00:00Z"
    while IFS='|' read -r id file contents; do
        spdx_package "$id" "$id" "$version" NOASSERTION "$output/$file"
        printf 'Relationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-%s\n' "$id"
        # shellcheck disable=SC2086 # the contents are words
        components_of $contents | while IFS='|' read -r name package licence; do
            component=$(tr -cs '[:alnum:]\n' - <<<"$id $name")
            spdx_package "$component" "$name" \
                "$(dpkg-query -W -f '${Version}' "$package")" "$licence" ''
            printf 'PackageComment: from the Debian package %s\n' "$package"
            printf 'Relationship: SPDXRef-%s CONTAINS SPDXRef-%s\n' "$id" "$component"
        done
    done <<END
setup|Quorvel-$version-setup.exe|windows setup
portable|Quorvel-$version-portable.zip|windows
qrv-linux|qrv-$version-linux.tar.gz|linux
END
}

pack_everything() {
    local output=$1
    rm -rf "$packing" "$output"
    mkdir -p "$packing" "$output"
    export SOURCE_DATE_EPOCH
    SOURCE_DATE_EPOCH=$(date -u -d "$release_date" +%s)
    build_for_packing windows Quorvel qrv assets
    build_for_packing linux qrv
    stage_windows "$packing/windows" "$packing/Quorvel"
    stage_linux "$packing/linux" "$packing/qrv-$version-linux"
    pack_zip "$packing/Quorvel" "$output/Quorvel-$version-portable.zip"
    pack_installer "$packing/Quorvel" "$packing/windows/assets/Quorvel.ico" "$version" \
        "$output/Quorvel-$version-setup.exe"
    pack_tar "$packing/qrv-$version-linux" "$output/qrv-$version-linux.tar.gz"
    write_spdx "$output" >"$output/Quorvel-$version.spdx"
    (cd "$output" && sha256sum -- * >"$packing/SHA256SUMS" && mv "$packing/SHA256SUMS" .)
}
