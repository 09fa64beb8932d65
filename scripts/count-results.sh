#!/usr/bin/env bash
# count-results.sh PRESET...: adds up the test cases that ctest and the test programs reported below
# build/PRESET/results, names those that failed, and ends with "N passed, M failed". A program that ended
# before it could report counts as one failure. Exit code 1 if anything failed or nothing was run.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

passed=0
failed=0

# The value of an attribute of the first element of this kind in a file.
attribute() {
    grep -om1 "<$2 [^>]*" "$1" | grep -om1 " $3=\"[^\"]*\"" | cut -d '"' -f 2
}

for preset in "$@"; do
    results=build/$preset/results
    [ -f "$results/ctest.xml" ] || { echo "failed: $preset was not run"; failed=$((failed + 1)); continue; }
    while IFS=$'\t' read -r name status; do
        report=$results/$name.xml
        cases=0
        bad=0
        if [ -f "$report" ]; then
            cases=$(attribute "$report" testsuites tests)
            bad=$(($(attribute "$report" testsuites failures) + $(attribute "$report" testsuites errors)))
            # Only names what failed, which is nothing in most reports; the numbers above count.
            grep -o '<testcase name="[^"]*"[^>]*classname="[^"]*" *>' "$report" |
                sed -E "s|.*testcase name=\"([^\"]*)\".*classname=\"([^\"]*)\".*|failed: $preset $name \2.\1|" || true
        elif [ "$status" = run ]; then
            cases=1
        fi
        if [ "$status" != run ] && [ "$bad" = 0 ]; then
            echo "failed: $preset $name did not come to its end"
            bad=1
            cases=$((cases > 0 ? cases : 1))
        fi
        passed=$((passed + cases - bad))
        failed=$((failed + bad))
    done < <(grep -o '<testcase [^>]*' "$results/ctest.xml" |
        sed -E 's|.* name="([^"]*)".* status="([^"]*)".*|\1\t\2|')
done

echo "$passed passed, $failed failed"
[ "$failed" = 0 ] && [ "$passed" -gt 0 ]
