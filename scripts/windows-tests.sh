#!/usr/bin/env bash
# Runs the tests of build/windows, which must be built already, under the Wine that is installed. No test needs a
# display, except those that start one of their own.
#
#   scripts/windows-tests.sh [CTEST ARGUMENT...]
#
# Exit code 0 if all passed. The reports go to build/windows/results, which is emptied first.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

rm -rf build/windows/results
mkdir -p build/windows/results
trap stop_wine EXIT
use_wine wine-test
use_null_display
stop_wine
use_wine wine-test
ctest --preset windows --output-junit results/ctest.xml "$@"
