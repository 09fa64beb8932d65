#!/usr/bin/env bash
# Counts the lines and branches of src/ and contextmenu/ that the tests reach: those of the logic in the native
# build, and those of the whole program in a build that runs through Wine. Ends with one table of both.
#
#   scripts/coverage.sh [native | windows]    default: both
#
# build/coverage/native-unreached.txt and windows-unreached.txt name the lines that no test reaches. Branches that
# only an exception takes are not counted: nearly every call has one.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

case ${1:-} in
    '') builds=(native windows) ;;
    native | windows) builds=("$1") ;;
    *) fail "usage: ./coverage.sh [native | windows]" ;;
esac

install_packages "${buildPackages[@]}" "${winePackages[@]}" g++ "${displayPackages[@]}" libbenchmark-dev gcovr python3

declare -A gcov=([native]=gcov [windows]=x86_64-w64-mingw32-gcov-posix)
reports=build/coverage
mkdir -p "$reports"

# Benchmarks assert nothing, the packages and the documents are of another build, and the races repeat without end
# what the other tests reach.
measure() {
    local build=$1 preset=$1-coverage
    build_preset "$preset"
    find "build/$preset" -name '*.gcda' -delete
    if [ "$build" = windows ]; then
        trap stop_wine EXIT
        use_wine wine-coverage
        use_null_display
        stop_wine
        use_wine wine-coverage
    fi
    echo "Testing $preset ..."
    quietly "build/logs/test-$preset.log" ctest --preset "$preset" -j "$(nproc)" \
        -E '^(bench_|package)|races$|^documents$'
    quietly "build/logs/gcovr-$build.log" gcovr --root . --filter 'src/' --filter 'contextmenu/' \
        --gcov-executable "${gcov[$build]}" --exclude-throw-branches --exclude-unreachable-branches \
        --csv "$reports/$build.csv" --sonarqube "$reports/$build.xml" "build/$preset"
    unreached_lines "$build" >"$reports/$build-unreached.txt"
}

# Each unreached line as "FILE:LINE: TEXT".
unreached_lines() {
    python3 - "$reports/$1.xml" <<'PYTHON'
import sys
from xml.etree import ElementTree

for file in ElementTree.parse(sys.argv[1]).getroot().iter("file"):
    path = file.get("path")
    lines = open(path, encoding="utf-8").read().splitlines()
    for line in file.iter("lineToCover"):
        if line.get("covered") == "false":
            number = int(line.get("lineNumber"))
            print(f"{path}:{number}: {lines[number - 1].strip()}")
PYTHON
}

# One row for each folder and one for all, from the sums of the files of all builds.
table() {
    local build
    for build in "${builds[@]}"; do
        sed -e 1d -e "s/^/$build,/" "$reports/$build.csv"
    done | LC_ALL=C sort -t , -k 2 | awk -F , -v names="${builds[*]}" '
        function add(folder) {
            lines[folder, $1] += $3
            reachedLines[folder, $1] += $4
            branches[folder, $1] += $6
            reachedBranches[folder, $1] += $7
        }
        function share(reached, all) {
            return all ? sprintf("%13s %5.1f %%", reached "/" all, 100 * reached / all) : sprintf("%21s", "-")
        }
        function row(folder,    i, text) {
            text = sprintf("%-24s", folder)
            for (i = 1; i <= count; ++i)
                text = text share(reachedLines[folder, name[i]], lines[folder, name[i]]) \
                    share(reachedBranches[folder, name[i]], branches[folder, name[i]])
            print text
        }
        BEGIN { count = split(names, name, " ") }
        {
            folder = $2
            sub("/[^/]*$", "", folder)
            if (folder != folders[rows])
                folders[++rows] = folder
            add(folder)
            add("all")
        }
        END {
            heading = sprintf("%-24s", "")
            for (i = 1; i <= count; ++i)
                heading = heading sprintf("%21s%21s", name[i] " lines", "branches")
            print heading
            for (i = 1; i <= rows; ++i)
                row(folders[i])
            row("all")
        }'
}

for build in "${builds[@]}"; do
    measure "$build"
done

echo
echo "Reached by the tests (without the branches that only an exception takes):"
table
for build in "${builds[@]}"; do
    echo
    echo "Lines unreached in $build: $(wc -l <"$reports/$build-unreached.txt"), see $reports/$build-unreached.txt"
done
if [[ ${builds[0]} == native && -s $reports/native-unreached.txt ]]; then
    echo
    cat "$reports/native-unreached.txt"
fi
