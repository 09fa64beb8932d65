#!/usr/bin/env bash
# Compares how fast tamblewickc and sha256sum hash a file of a GiB that is in the cache of the system. The programs take
# turns; shown is the median of the rounds, as whole time and as time of the processor.
#
#   bench/hash.sh [ROUNDS]    default: 5
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

rounds=${1:-5}
install_packages "${buildPackages[@]}" "${winePackages[@]}"
build_preset windows tamblewickc
use_wine wine-test
folder=$(mktemp -d)
trap 'stop_wine; rm -rf "$folder"' EXIT
mkdir "$folder/data"
head -c 1G /dev/urandom >"$folder/data/large"
TIMEFORMAT='%R %U %S'

# Adds a line with the whole time and the processor's time to a file.
measure() {
    local file=$1
    shift
    { time "$@" >"$folder/sums" 2>/dev/null </dev/null; } 2>"$folder/times"
    awk '{ print $1, $2 + $3 }' "$folder/times" >>"$folder/$file"
}

median() {
    cut -d ' ' -f "$2" "$folder/$1" | sort -n | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'
}

cd "$folder/data"
for ((round = 0; round < rounds; ++round)); do
    measure sha256sum sha256sum -b large
    cp "$folder/sums" "$folder/expected"
    measure tamblewickc wine "$OLDPWD/build/windows/tamblewickc.exe" list --template 0 "Z:$folder/data" -f sha256sum
    cmp "$folder/sums" "$folder/expected" || fail 'The hashes differ.'
done
for program in sha256sum tamblewickc; do
    echo "$program: $(median $program 1) s, of the processor $(median $program 2) s"
done
