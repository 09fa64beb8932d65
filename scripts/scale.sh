#!/usr/bin/env bash
# Lists a real tree of a million files, a folder of 300,000 entries and names and paths as long as Linux allows
# with the built program under Wine, in each shape and style. Compares every row with what find finds, and the
# memory for each entry with that for a quarter of the tree. Prints a table; exit code 1 if anything differs.
# Takes some minutes, and for 1.3 million files below build/scale most of a gigabyte.
#
#   scripts/scale.sh [TREE...]    default: million/quarter million wide long
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}" time
build_preset windows tamblewick tamblewickc

data=$PWD/build/scale
lists=$data/lists

# The order of bytes in the names is the order of the list: names of the same length, and files after folders.
make_trees() {
    echo "Making the trees ..."
    rm -rf "$data"
    mkdir -p "$data/empty" "$data/million" "$data/wide" "$data/long" "$lists"
    for part in $(seq 100 199); do
        quarter=$([ "$part" -lt 125 ] && echo quarter || echo rest)
        for section in $(seq 100 199); do
            echo "$data/million/$quarter/part$part/section$section"
        done
    done >"$data/folders"
    xargs -a "$data/folders" mkdir -p
    awk '{ for (i = 100; i < 200; i++) print $0 "/document " i ".text" }' "$data/folders" | xargs -d '\n' touch
    for number in $(seq 100000 249999); do echo "$data/wide/d$number"; done | xargs mkdir
    for number in $(seq 100000 249999); do echo "$data/wide/f$number"; done | xargs touch
    # Linux takes 255 bytes for a name and 4,095 for a path.
    local name place=$data/long
    name=$(printf 'n%.0s' $(seq 255))
    while [ $((${#place} + 2 * 256)) -lt 4095 ]; do
        place=$place/$name
        mkdir "$place"
        touch "$place/${name/n/z}"
    done
    touch "$data/complete"
}
[ -f "$data/complete" ] || make_trees

trap stop_wine EXIT
use_wine wine-scale
use_null_display
stop_wine
use_wine wine-scale

windows_path() { echo "Z:${1//\//\\}"; }

# Not through a pipe: the processes that Wine starts beside the program would keep it open.
tamblewickc() { wine build/windows/tamblewickc.exe "$@" </dev/null 2>/dev/null; }
tamblewickc presets new 0 scale >"$data/key"
key=$(cat "$data/key")
tamblewickc presets set "$key" Saving.SaveLocation=Custom "Saving.CustomFolderPath=$(windows_path "$lists")" \
    Saving.OverwriteExisting=true Opening.OpenMethod=Nothing

# The rows of a list are full paths: in a grouped one each folder with its contents, its folders first, in a flat
# one all folders and then all files, those of a folder before those of the folders in it.
expected_rows() {
    local root=$1 flat=$2
    if [ "$flat" = true ]; then
        find "$root" -mindepth 1 -type d | LC_ALL=C sort
        find "$root" -mindepth 1 -type f -printf '%h\t%f\n' | LC_ALL=C sort | tr '\t' /
    else
        find "$root" -mindepth 1 | LC_ALL=C sort
    fi | sed 's|/|\\|g; s|^|Z:|'
}
rows_of() { sed -nE 's|^\t*(<td>)?(Z:[^<\r]*)(</td>)?\r?$|\2|p' "$1"; }

failed=0
complain() {
    echo "$*"
    failed=1
}

# list SUBJECT STYLE FLAT: makes a list, compares it, and sets seconds, kilobytes and entries.
list() {
    local subject=$1 style=$2 flat=$3 file code=0 start=$EPOCHREALTIME
    rm -f "$lists"/*
    /usr/bin/time -o "$data/memory" -f %M wine build/windows/tamblewick.exe "$key" \
        "$(windows_path "$data/$subject")" </dev/null >/dev/null 2>&1 || code=$?
    seconds=$(awk -v from="$start" -v to="$EPOCHREALTIME" 'BEGIN { printf "%.1f", to - from }')
    kilobytes=$(tail -n 1 "$data/memory")
    [ "$code" = 0 ] || complain "$subject $style $flat: exit code $code"
    file=("$lists"/*)
    [ -f "${file[0]}" ] || { complain "$subject $style $flat: no list"; return; }
    expected_rows "$data/$subject" "$flat" >"$data/expected"
    rows_of "${file[0]}" >"$data/rows"
    cmp "$data/expected" "$data/rows" || complain "$subject $style $flat: the rows are not what find finds"
    entries=$(wc -l <"$data/expected")
}

row='%-16s %-6s %-8s %10s %9s %11s %12s\n'
subjects=(${*:-million/quarter million wide long})
printf "$row" tree style shape entries seconds "peak MB" "bytes/entry"
for style in Text Html; do
    for flat in false true; do
        tamblewickc presets set "$key" Format.ListStyle=$style Display.ShowFlatStyle=$flat
        list empty $style $flat
        none=$kilobytes
        quarter=
        for subject in "${subjects[@]}"; do
            list $subject $style $flat
            # Of few entries the memory of the program itself is all there is.
            each=$([ "$entries" -gt 1000 ] && echo $(((kilobytes - none) * 1024 / entries)) || echo -)
            printf "$row" $subject $style "$([ $flat = true ] && echo flat || echo grouped)" "$entries" "$seconds" \
                $((kilobytes / 1024)) $each
            [ $subject != million/quarter ] || quarter=$each
            [ $subject != million ] || [ -z "$quarter" ] || [ $each -le $((quarter * 11 / 10)) ] ||
                complain "memory grows faster than the tree"
        done
    done
done
exit $failed
