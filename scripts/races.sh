#!/usr/bin/env bash
# Starts lists ten thousand times in one process and three hundred times as processes, while someone presses the
# dialogs, answers errors and closes the window at any moment. Takes some four minutes.
#
#   scripts/races.sh [STARTS]    STARTS of each test in one process, in the place of its own number
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

[ -z "${1:-}" ] || export TAMBLEWICK_STARTS=$1
install_packages "${buildPackages[@]}" "${winePackages[@]}" libbenchmark-dev
build_preset windows races process_races
scripts/windows-tests.sh -R 'races$'
