#!/usr/bin/env bash
# Times both programs and the other listers that Wine brings along on two real trees, against the bare walk of
# bench/listing/Floor.cpp: one with numbered names, one with the names of bench/mixed-tree.py. All run in turn on
# one processor, the Wine server too; the start-up of each is subtracted by a run on an empty folder. Prints a
# table of medians in Markdown for each tree.
#
#   bench/peers.sh [ROUNDS [LISTER...]]       default: 15 rounds of all listers; "floor" must be among them
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

rounds=${1:-15}
listers=("${@:2}")
[ ${#listers[@]} -ne 0 ] || listers=(floor text html c-text c-csv c-jsonl dir dir-names for attrib xcopy)
declare -A titles=(
    [floor]="bare walk"
    [text]="**tamblewick, grouped text list**"
    [html]="**tamblewick, grouped HTML list**"
    [c-text]="**tamblewickc, text**"
    [c-csv]="**tamblewickc, CSV**"
    [c-jsonl]="**tamblewickc, JSON Lines**"
    [dir]="\`cmd /c dir /s\`"
    [dir-names]="\`cmd /c dir /s /b\`"
    [for]="\`cmd /c for /r\`, files only"
    [attrib]="\`attrib /s /d\`"
    [xcopy]="\`xcopy /l /s\`, files only"
)

install_packages "${buildPackages[@]}" "${winePackages[@]}" time
build_preset windows tamblewick tamblewickc floor

data=$PWD/build/bench
files=100000
# A part of the name of each file, and of nothing else.
declare -A marks=([numbered]="document-" [mixed]="~")
if [ ! -f "$data/complete" ]; then
    echo "Making two trees of $files files in 5,000 folders ..."
    rm -rf "$data"
    mkdir -p "$data/empty" "$data/lists"
    for folder in $(seq 0 4999); do
        place=$data/numbered/part$((folder / 100))/section$folder
        mkdir -p "$place"
        (cd "$place" && touch $(seq -f "document-%g.text" $((folder * 20)) $((folder * 20 + 19))))
    done
    python3 bench/mixed-tree.py "$data/mixed" 5000 20
    touch "$data/complete"
fi

# Everything from here on runs on one processor.
taskset -cp 0 $$ >/dev/null
trap stop_wine EXIT
use_wine wine-bench
use_null_display
stop_wine
use_wine wine-bench

windows_path() { echo "Z:${1//\//\\}"; }

# make_preset TEMPLATE: prints the key of a preset that saves to our folder and opens nothing.
make_preset() {
    local key
    key=$(wine build/windows/tamblewickc.exe presets new "$1" bench 2>/dev/null)
    wine build/windows/tamblewickc.exe presets set "$key" Saving.SaveLocation=Custom \
        "Saving.CustomFolderPath=$(windows_path "$data/lists")" Saving.OverwriteExisting=true \
        Opening.OpenMethod=Nothing >/dev/null 2>&1
    echo "$key"
}
textKey=$(make_preset 0)
htmlKey=$(make_preset 1)

# timed RESULTS OUTPUT COMMAND...: appends the microseconds and the peak memory in KiB of one run.
timed() {
    local results=$1
    shift
    /usr/bin/time -a -o "$results.memory" -f %M bash -c 'start=$EPOCHREALTIME
        "${@:3}" </dev/null >"$2" 2>/dev/null
        end=$EPOCHREALTIME
        echo $((${end/./} - ${start/./})) >>"$1"' - "$results" "$@"
}

# list LISTER SUBJECT: one run on data/SUBJECT. Sets output to the file that has the list.
list() {
    local folder results=$resultsFolder/$1-$2
    folder=$(windows_path "$data/$2")
    output=$data/lists/$1-$2.txt
    case $1 in
        floor) timed "$results" /dev/null wine build/windows/floor.exe "$folder" "$(windows_path "$output")" ;;
        text)
            timed "$results" /dev/null wine build/windows/tamblewick.exe "$textKey" "$folder"
            output="$data/lists/List of $2.txt"
            ;;
        html)
            timed "$results" /dev/null wine build/windows/tamblewick.exe "$htmlKey" "$folder"
            output="$data/lists/List of $2.html"
            ;;
        c-*)
            timed "$results" /dev/null wine build/windows/tamblewickc.exe list "$textKey" "$folder" \
                --format "${1#c-}" --output "$(windows_path "$output")" --quiet
            ;;
        dir) timed "$results" "$output" wine cmd /c dir /s "$folder" ;;
        dir-names) timed "$results" "$output" wine cmd /c dir /s /b "$folder" ;;
        for) timed "$results" "$output" wine cmd /c "for /r $folder %f in (*) do @echo %f" ;;
        attrib) timed "$results" "$output" wine attrib "$folder\\*" /s /d ;;
        xcopy) timed "$results" "$output" wine xcopy "$folder" "$(windows_path "$data/empty")" /l /s /i ;;
        *) fail "no such lister: $1" ;;
    esac
}

median() { sort -n "$resultsFolder/$1" | awk '{ v[NR] = $1 } END { printf "%.0f\n", (v[int((NR + 1) / 2)] + v[int((NR + 2) / 2)]) / 2 }'; }

resultsFolder=$(mktemp -d)

# measure TREE: prints the table of one tree.
measure() {
    local tree=$1 entries lister round floorTime
    entries=$(find "$data/$tree" -mindepth 1 | wc -l)
    rm -f "$data/lists"/* "$resultsFolder"/*
    for lister in "${listers[@]}"; do
        list "$lister" empty
        list "$lister" "$tree"
        [ "$(grep -aFc -- "${marks[$tree]}" "$output")" = "$files" ] || fail "$lister does not list the whole tree"
    done
    rm -f "$resultsFolder"/*
    for round in $(seq "$rounds"); do
        for lister in "${listers[@]}"; do
            list "$lister" "$tree"
            list "$lister" empty
        done
    done

    echo
    echo "$entries entries with $tree names, medians of $rounds rounds on one processor"
    echo "($(sed -n 's/^model name\s*: //p' /proc/cpuinfo | sort -u), Linux $(uname -r), $(wine --version))"
    echo
    echo "| lister | whole run | empty run | for each entry | ratio to the bare walk | peak memory | memory for each entry |"
    echo "|---|--:|--:|--:|--:|--:|--:|"
    floorTime=$(($(median "floor-$tree") - $(median floor-empty)))
    for lister in "${listers[@]}"; do
        awk -v title="${titles[$lister]}" -v entries="$entries" -v floor="$floorTime" \
            -v run="$(median "$lister-$tree")" -v empty="$(median "$lister-empty")" \
            -v peak="$(median "$lister-$tree.memory")" -v start="$(median "$lister-empty.memory")" 'BEGIN {
            grown = peak > start ? peak - start : 0
            printf "| %s | %.0f ms | %.0f ms | %.2f us | %.3f | %.1f MB | %.0f bytes |\n", title, run / 1e3, empty / 1e3,
                (run - empty) / entries, (run - empty) / floor, peak / 1024, grown * 1024 / entries
        }'
    done
}

measure numbered
measure mixed
rm -rf "$resultsFolder"
