#!/usr/bin/env bash
# Builds and packages the committed sources twice, in two folders, and compares the packages byte by byte. Takes some
# minutes. Exit code 1 if any differ; both stay below build/reproducible.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages git

folders=(build/reproducible/one "build/reproducible/another one with a longer name")
rm -rf build/reproducible
for folder in "${folders[@]}"; do
    mkdir -p "$folder"
    git archive HEAD | tar -x -C "$folder"
    (cd "$folder" && packaging/package.sh)
done
diff -r "${folders[0]}/build/packages" "${folders[1]}/build/packages"
echo "The packages are the same."
