#!/usr/bin/env bash
# Makes what is offered for download into build/packages: the setup, the portable zip, the hashes of both and the
# manifest for winget.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

# The time that all packed files bear, so that the same sources give the same bytes.
released='2026-11-21 12:00:00'

install_packages "${buildPackages[@]}" nsis zip
build_preset windows tamblewick tamblewickc contextmenu

packages=$PWD/build/packages
stage=$packages/stage/tamblewick-$version
rm -rf "$packages"
mkdir -p "$stage"
cp build/windows/tamblewick.exe build/windows/tamblewickc.exe build/windows/tamblewick.dll "$stage"
sed -e "s/{version}/$version/" -e 's/$/\r/' packaging/README.txt >"$stage/README.txt"
chmod 644 "$stage"/*
TZ=UTC find "$stage" -exec touch -d "$released" {} +

(cd "$packages/stage" && TZ=UTC zip -X -q -9 "../tamblewick-$version-portable.zip" \
    "tamblewick-$version/README.txt" "tamblewick-$version/tamblewick.dll" "tamblewick-$version/tamblewick.exe" \
    "tamblewick-$version/tamblewickc.exe")

# The icon is for the setup itself, so it comes after the zip.
cp src/resources/icons/program.ico "$stage/tamblewick.ico"
size=$(du -bk --apparent-size "$stage" | cut -f 1)
quietly build/logs/makensis.log makensis -V2 -WX "-DFILES=$stage" "-DOUTPUT=$packages/tamblewick-$version-setup.exe" \
    "-DVERSION=$version" "-DSIZE=$size" packaging/setup.nsi
rm -rf "$packages/stage"

(cd "$packages" && sha256sum "tamblewick-$version-portable.zip" "tamblewick-$version-setup.exe" >SHA256SUMS)

mkdir "$packages/winget"
setup=$(sha256sum "$packages/tamblewick-$version-setup.exe" | cut -d ' ' -f 1)
for manifest in packaging/winget/*.yaml; do
    sed -e "s/{version}/$version/" -e "s/{setup}/${setup^^}/" -e '/package.sh puts/d' "$manifest" >"$packages/winget/$(basename "$manifest")"
done

ls -l "$packages"
