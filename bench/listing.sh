#!/usr/bin/env bash
# Times the whole program under Wine on a real tree against the bare walk of bench/listing/Floor.cpp, which
# writes one line for each entry with one WriteFile. Both run in turn on one processor, the Wine server too; the
# start-up of each is subtracted by a run on an empty folder. Prints medians, their ratio and peak memory.
#
#   bench/listing.sh [ROUNDS]       default 11
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

rounds=${1:-11}
install_packages "${buildPackages[@]}" "${winePackages[@]}" time
build_preset windows tamblewick presets floor

data=$PWD/build/bench
tree=$data/tree
if [ ! -f "$data/complete" ]; then
    echo "Making a tree of 100,000 files in 5,000 folders ..."
    rm -rf "$data"
    mkdir -p "$data/empty" "$data/lists"
    for folder in $(seq 0 4999); do
        place=$tree/part$((folder / 100))/section$folder
        mkdir -p "$place"
        (cd "$place" && touch $(seq -f "document-%g.text" $((folder * 20)) $((folder * 20 + 19))))
    done
    touch "$data/complete"
fi
entries=$(find "$tree" -mindepth 1 | wc -l)

# Everything from here on runs on one processor.
taskset -cp 0 $$ >/dev/null
trap stop_wine EXIT
use_wine wine-bench
use_null_display
stop_wine
use_wine wine-bench

windows_path() { echo "Z:${1//\//\\}"; }

key=$(wine build/windows/presets.exe new 0 bench | tr -d '\r')
preset="HKCU\\Software\\Tamblewick\\$key"
{
    wine reg add "$preset\\Saving" /v SaveLocation /d Custom /f
    wine reg add "$preset\\Saving" /v CustomFolderPath /d "$(windows_path "$data/lists")" /f
    wine reg add "$preset\\Saving" /v OverwriteExisting /t REG_DWORD /d 1 /f
    wine reg add "$preset\\Opening" /v OpenMethod /d Nothing /f
} >/dev/null 2>&1

# timed FILE COMMAND...: appends the seconds and the peak memory in KiB of one run.
timed() {
    local out=$1
    shift
    /usr/bin/time -a -o "$out.memory" -f %M bash -c 'start=$EPOCHREALTIME
        "${@:2}" >/dev/null 2>&1
        end=$EPOCHREALTIME
        echo $((${end/./} - ${start/./})) >>"$1"' - "$out" "$@"
}

results=$(mktemp -d)
program() { timed "$results/program-$1" wine build/windows/tamblewick.exe "$key" "$(windows_path "$data/$1")"; }
floor() { timed "$results/floor-$1" wine build/windows/floor.exe "$(windows_path "$data/$1")" "$(windows_path "$data/lists/floor.txt")"; }

for subject in tree empty; do program $subject; floor $subject; done
rm -f "$results"/*
for round in $(seq "$rounds"); do
    for subject in tree empty; do
        program $subject
        floor $subject
    done
done

median() { sort -n "$1" | awk '{ v[NR] = $1 } END { print (v[int((NR + 1) / 2)] + v[int((NR + 2) / 2)]) / 2 }'; }

awk -v entries="$entries" -v rounds="$rounds" \
    -v pt="$(median "$results/program-tree")" -v pe="$(median "$results/program-empty")" \
    -v ft="$(median "$results/floor-tree")" -v fe="$(median "$results/floor-empty")" \
    -v pm="$(median "$results/program-tree.memory")" -v pn="$(median "$results/program-empty.memory")" \
    -v fm="$(median "$results/floor-tree.memory")" -v fn="$(median "$results/floor-empty.memory")" 'BEGIN {
    printf "%d entries, medians of %d rounds, one processor\n\n", entries, rounds
    printf "%-22s %12s %12s %14s %12s\n", "", "whole run", "empty run", "per entry", "peak memory"
    printf "%-22s %9.0f ms %9.0f ms %11.2f us %9.1f MB\n", "bare walk", ft / 1e3, fe / 1e3, (ft - fe) / entries, fm / 1024
    printf "%-22s %9.0f ms %9.0f ms %11.2f us %9.1f MB\n\n", "tamblewick, text", pt / 1e3, pe / 1e3, (pt - pe) / entries, pm / 1024
    printf "ratio %.3f, %.0f bytes of memory for each entry above the empty run\n", (pt - pe) / (ft - fe), (pm - pn) * 1024 / entries
}'
rm -rf "$results"
