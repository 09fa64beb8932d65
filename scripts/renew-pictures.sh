#!/usr/bin/env bash
# Replaces the pictures of tests/window/pictures, with which the test window_pictures compares the pages and dialogs.
# Look at every picture that has changed before you commit it.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}" "${displayPackages[@]}" git
build_preset windows window_pictures
tests/window/pictures.sh build/windows/tamblewick.exe build/windows/progress_window.exe --renew
git status --short tests/window/pictures
