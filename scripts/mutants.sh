#!/usr/bin/env bash
# Shows that the tests can fail: puts one small fault after the other into a copy of the sources and runs the
# test programs that have to notice it. The faults are in tests/mutants; scanner.txt describes the format.
#
#   scripts/mutants.sh [TEXT]    only the faults whose file, program or title contains TEXT; default: all
#
# A line for each fault, at the end "N faults, M survived"; exit code 1 if any survived. What does not compile, or
# replaces a text that does not occur exactly once in its file, ends the script.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

wanted=${1:-}
# Of a test that fails nothing more is needed.
export GTEST_FAIL_FAST=1

# ---- The faults: arrays with one element for each

titles=() files=() programs=() texts=() replacements=()

read_faults() {
    local list=$1 line title='' file='' program='' text='' replacement=''
    while IFS= read -r line; do
        case $line in
            '#'*) ;;
            'fault: '*) title=${line#*: } file='' program='' text='' replacement='' ;;
            'file: '*) file=${line#*: } ;;
            'seen by: '*) program=${line#*: } ;;
            -*) text+=${line:1}$'\n' ;;
            +*) replacement+=${line:1}$'\n' ;;
            '') add_fault ;;
            *) fail "$list: cannot read '$line'" ;;
        esac
    done < <(cat "$list"; echo)
}

# Takes the values that read_faults has gathered, if there are any.
add_fault() {
    [ -n "$title" ] || return 0
    [[ -n $file && -n $program && -n $text ]] || fail "$list: '$title' is not complete"
    if [[ "$title $file $program" == *"$wanted"* ]]; then
        check_fault
        titles+=("$title")
        files+=("$file")
        programs+=("$program")
        texts+=("${text%$'\n'}")
        replacements+=("${replacement%$'\n'}")
    fi
    title=''
}

check_fault() {
    local content rest
    [ -f "$file" ] || fail "$list: '$title': there is no $file"
    content=$(<"$file")
    rest=${content#*"${text%$'\n'}"}
    [ "$rest" != "$content" ] || fail "$list: '$title': the text does not occur in $file"
    [[ $rest != *"${text%$'\n'}"* ]] || fail "$list: '$title': the text occurs in $file more than once"
}

for list in tests/mutants/*.txt; do
    read_faults "$list"
done
[ ${#titles[@]} -gt 0 ] || fail "There is no such fault."

# ---- The copy: a tree of its own, with its own build folders and Wine prefix

install_packages "${buildPackages[@]}" "${winePackages[@]}" g++ libbenchmark-dev python3 python3-yaml unzip

# A file is written only if it differs, so that a second run builds little.
while IFS= read -r source; do
    cmp -s "$source" "build/mutants/$source" && continue
    mkdir -p "build/mutants/$(dirname "$source")"
    cp "$source" "build/mutants/$source"
done < <(find CMakeLists.txt CMakePresets.json cmake scripts src contextmenu bench tests packaging docs README.md -type f)
cd build/mutants

# Builds and runs a program, given as "PRESET NAME". Returns whether its tests passed.
passes() {
    local preset=${1% *} name=${1#* }
    quietly build/logs/build.log cmake --build --preset "$preset" --target "$name"
    [[ $name != package* ]] || { quietly build/logs/package.log packaging/package.sh && unpack_portable; }
    mkdir -p "build/$preset/results"
    rm -f "build/$preset/results/$name.xml"
    ctest --preset "$preset" -R "^$name\$" >build/logs/test.log 2>&1
}

# The first test case that failed in the last run of a program.
failed_case() {
    local report=build/${1% *}/results/${1#* }.xml
    [ -f "$report" ] || { echo 'the program did not come to its end'; return; }
    awk '
        /<testcase / {
            match($0, / name="[^"]*"/); name = substr($0, RSTART + 7, RLENGTH - 8)
            match($0, / classname="[^"]*"/); suite = substr($0, RSTART + 12, RLENGTH - 13)
        }
        /<failure/ { print suite "." name; exit }' "$report"
}

put() {
    printf '%s\n' "$2" >"$1"
}

mapfile -t used < <(printf '%s\n' "${programs[@]}" | sort -u)
if [[ " ${used[*]} " == *' windows '* ]]; then
    trap stop_wine EXIT
    use_wine wine-test
    use_null_display
    stop_wine
    use_wine wine-test
fi
for preset in native windows; do
    mapfile -t targets < <(printf '%s\n' "${used[@]}" | sed -n "s/^$preset //p")
    [ ${#targets[@]} -eq 0 ] || build_preset "$preset" "${targets[@]}"
done

# ---- The control, and the faults

for program in "${used[@]}"; do
    echo "Testing without a fault: $program ..."
    passes "$program" || fail "$program fails without a fault: $(failed_case "$program")"
done

survived=0
for i in "${!titles[@]}"; do
    file=${files[i]}
    content=$(<"$file")
    put "$file" "${content%%"${texts[i]}"*}${replacements[i]}${content#*"${texts[i]}"}"
    if passes "${programs[i]}"; then
        survived=$((survived + 1))
        verdict="SURVIVED ${programs[i]}"
    else
        verdict="caught by ${programs[i]}: $(failed_case "${programs[i]}")"
    fi
    put "$file" "$content"
    echo "$file: ${titles[i]}: $verdict"
done

echo "${#titles[@]} faults, $survived survived"
[ "$survived" = 0 ]
