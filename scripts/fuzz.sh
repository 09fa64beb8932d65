#!/usr/bin/env bash
# Fuzzes the logic on the stand-in for Win32: each program of tests/fuzz for this many minutes, as many at a time
# as there are processors.
#
#   scripts/fuzz.sh [MINUTES [TARGET...]]     default: 1 minute, all targets
#   scripts/fuzz.sh --minimise [TARGET...]    makes the smallest set of inputs that reaches all that is reached, from
#                                       the committed ones and the findings, the committed one of each target
#
# Inputs that reach something new are kept in build/fuzz/findings/TARGET, those that break something in
# build/fuzz/findings/TARGET-crash-*; run build/fuzz/fuzz_TARGET with such a file to see it again.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

# So many bytes of an input are enough for all that a target can do with one.
declare -A longest=([arguments]=100 [import]=600 [names]=60 [paths]=60 [patterns]=120 [registry]=400 [list]=400)
mostInputs=100

minutes=1
minimise=false
case ${1:-} in
    --minimise) minimise=true; shift ;;
    *[!0-9]*) fail "usage: ./fuzz.sh [MINUTES [TARGET...]] | --minimise [TARGET...]" ;;
    ?*) minutes=$1; shift ;;
esac
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=("${!longest[@]}")
for target in "${targets[@]}"; do
    [ -n "${longest[$target]:-}" ] || fail "There is no target '$target'; the targets are: ${!longest[*]}"
done

install_packages "${buildPackages[@]}" g++ clang libclang-rt-14-dev libbenchmark-dev
build_preset fuzz

findings=$PWD/build/fuzz/findings
corpus=$PWD/tests/fuzz/corpus

fuzz() {
    local target=$1
    mkdir -p "$findings/$target" "$corpus/$target"
    "build/fuzz/fuzz_$target" -max_total_time=$((minutes * 60)) -max_len="${longest[$target]}" -timeout=20 \
        -artifact_prefix="$findings/$target-" "$findings/$target" "$corpus/$target" \
        >"build/logs/fuzz-$target.log" 2>&1
}

# The merge prefers small inputs; of too many that are left, small and large ones alike are taken.
minimise() {
    local target=$1 merged count
    merged=$(mktemp -d)
    mkdir -p "$findings/$target"
    "build/fuzz/fuzz_$target" -merge=1 -max_len="${longest[$target]}" "$merged" "$corpus/$target" \
        "$findings/$target" >"build/logs/merge-$target.log" 2>&1
    rm -rf "${corpus:?}/$target"
    mkdir -p "$corpus/$target"
    count=$(find "$merged" -type f | wc -l)
    find "$merged" -type f -printf '%s %p\n' | sort -n |
        awk -v all="$count" -v most="$mostInputs" \
            'all <= most || int(NR * most / all) > int((NR - 1) * most / all) { print $2 }' |
        xargs -r cp -t "$corpus/$target"
    rm -rf "$merged"
    echo "$target: $(find "$corpus/$target" -type f | wc -l) inputs"
}

if $minimise; then
    for target in "${targets[@]}"; do
        minimise "$target"
    done
    exit
fi

echo "Fuzzing ${targets[*]} for $minutes minute(s) each ..."
broken=0
declare -A running=()
collect() {
    local process status=0
    wait -n -p process "${!running[@]}" || status=$?
    local target=${running[$process]}
    unset "running[$process]"
    if [ "$status" = 0 ]; then
        echo "$target: $(grep -o '^Done .*' "build/logs/fuzz-$target.log")"
    else
        broken=$((broken + 1))
        echo "$target: BROKEN"
        # Counted above; this only shows what the log says of it.
        grep -E -A 1 '^Broken:|ERROR: |runtime error:|Test unit written' "build/logs/fuzz-$target.log" || true
    fi
}
for target in "${targets[@]}"; do
    [ ${#running[@]} -lt "$(nproc)" ] || collect
    fuzz "$target" &
    running[$!]=$target
done
while [ ${#running[@]} -gt 0 ]; do
    collect
done
[ "$broken" = 0 ]
