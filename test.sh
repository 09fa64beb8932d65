#!/usr/bin/env bash
# Builds everything and runs all tests: the logic natively, under AddressSanitizer with UBSan and under
# ThreadSanitizer, each fuzz program for some seconds, and everything again under Wine. Ends with one line
# "N passed, M failed".
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}" \
    "${displayPackages[@]}" "${browserPackages[@]}" g++ clang libclang-rt-14-dev libbenchmark-dev python3 \
    python3-yaml jq sqlite3 unzip

# What the threads of a job touch; the rest has one thread.
threadedTests=(unit_progress unit_listmaker)

for preset in native native-asan fuzz windows; do
    build_preset "$preset"
done
build_preset native-tsan "${threadedTests[@]}"

echo "Checking format and style ..."
scripts/lint.sh

run_tests() {
    local preset=$1
    shift
    echo "Testing $preset ..."
    rm -rf "build/$preset/results"
    mkdir -p "build/$preset/results"
    # Goes on to the next preset: what failed is read from the results and counted at the end.
    ctest --preset "$preset" --output-junit results/ctest.xml "$@" || true
}

run_tests native
run_tests native-asan
run_tests native-tsan -R "^($(IFS='|'; echo "${threadedTests[*]}"))\$"
run_tests fuzz

packaging/package.sh
unpack_portable

echo "Testing windows ..."
# The races take minutes: scripts/races.sh. What failed, or was not run, is counted below.
scripts/windows-tests.sh -E 'races$' || true

scripts/count-results.py native native-asan native-tsan fuzz windows
