#!/usr/bin/env bash
# Makes what is offered for download: the setup, the portable zip, the symbols of both for reports of crashes, the
# hashes of all three, and the manifests for winget and Scoop. The same sources give the same bytes.
#
#   packaging/package.sh [FOLDER]    default: build/packages; the folder is emptied first
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

# The time that all packed files bear.
released='2026-11-21 12:00:00'

programs=(tamblewick.exe tamblewickc.exe tamblewick.dll)
# The setup contains NSIS's own code and its plug-in for the page of the menu.
nsis=/usr/share/nsis
setupParts=("$nsis/Stubs/lzma_solid-amd64-unicode" "$nsis/Plugins/amd64-unicode/nsDialogs.dll")

install_packages "${buildPackages[@]}" nsis zip python3
build_preset windows tamblewick tamblewickc contextmenu

packages=${1:-build/packages}
rm -rf "$packages"
mkdir -p "$packages"
packages=$(readlink -f "$packages")
setup=$packages/tamblewick-$version-setup.exe
portable=$packages/tamblewick-$version-portable.zip
symbols=$packages/tamblewick-$version-symbols.zip
stage=$packages/stage/tamblewick-$version
symbolStage=$packages/stage/tamblewick-$version-symbols

# pack ZIP FOLDER
pack() {
    chmod 644 "$2"/*
    TZ=UTC find "$2" -exec touch -d "$released" {} +
    (cd "$(dirname "$2")" && TZ=UTC zip -X -q -9 "$1" "$(basename "$2")"/*)
}

mkdir -p "$stage" "$symbolStage"
packaging/third-party.py build/windows "$version" "${programs[@]}" -- "${setupParts[@]}" >"$packages/stage/notices"
sed -e 's/$/\r/' "$packages/stage/notices" >"$stage/THIRD-PARTY.txt"
sed -e "s/{version}/$version/" -e 's/$/\r/' packaging/README.txt >"$stage/README.txt"
for program in "${programs[@]}"; do
    cp "build/windows/$program" "$stage"
    cp "build/windows/$program.debug" "$symbolStage"
done
pack "$portable" "$stage"
pack "$symbols" "$symbolStage"

# The icon is for the setup itself, so it comes after the zip.
cp src/resources/icons/program.ico "$stage/tamblewick.ico"
size=$(du -bk --apparent-size "$stage" | cut -f 1)
quietly build/logs/makensis.log makensis -V2 -WX "-DFILES=$stage" "-DOUTPUT=$setup" \
    "-DVERSION=$version" "-DSIZE=$size" packaging/setup.nsi

# The manifests name hashes as {FILE}, those of the packages as {setup} and {portable}.
hash() {
    sha256sum "$1" | cut -d ' ' -f 1
}
values=(-e "s/{version}/$version/g" -e "s/{released}/${released% *}/" -e '/package.sh fills/d'
    -e "s/{setup}/$(hash "$setup")/" -e "s/{portable}/$(hash "$portable")/")
for program in "${programs[@]}"; do
    values+=(-e "s/{$program}/$(hash "$stage/$program")/")
done
for manifest in packaging/winget/*.yaml packaging/scoop/*.json; do
    filled=$packages/${manifest#packaging/}
    mkdir -p "$(dirname "$filled")"
    sed "${values[@]}" "$manifest" >"$filled"
done

rm -rf "$packages/stage"
(cd "$packages" && sha256sum -- *.zip *.exe >SHA256SUMS)
ls -l "$packages"
