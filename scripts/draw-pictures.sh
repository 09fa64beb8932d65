#!/usr/bin/env bash
# Makes the pictures of the README in docs/pictures anew, from the built programs: a list and a report in a browser,
# and the main window. Look at every picture that has changed before you commit it.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}" "${displayPackages[@]}" "${browserPackages[@]}" git
build_preset windows tamblewick tamblewickc
program=$PWD/build/windows/tamblewick.exe
pictures=$PWD/docs/pictures
work=$PWD/build/draw-pictures
rm -rf "$work"
mkdir -p "$work/d"
. tests/window/window.sh
open_desktop
ln -sfn "$work/d" "$WINEPREFIX/dosdevices/d:"

tamblewickc() { wine build/windows/tamblewickc.exe "$@" </dev/null >/dev/null 2>&1; }

# add_photos FOLDER NAME KIBIBYTES...: photos of these sizes.
add_photos() {
    local folder="$work/d/Photo archive/$1" name=$2 number=0 size
    mkdir -p "$folder"
    for size in "${@:3}"; do
        number=$((number + 1))
        truncate -s "${size}K" "$folder/$name $number.jpg"
    done
}
add_photos '2024 Norway' Norway 3500 807 3480 3270
add_photos '2025 Lisbon' Lisbon 2760 3270 2790 2350
add_photos '2026 Family' Family 2900 2610 2730
add_photos '2026 Family/Scans' Scan 140 153
truncate -s 2K "$work/d/Photo archive/index.txt"

# browse PICTURE SIZE FILE: of a page at the size WIDTH,HEIGHT.
browse() {
    chromium --headless=new --no-sandbox --disable-gpu --hide-scrollbars --force-color-profile=srgb \
        --window-size="$2" --virtual-time-budget=5000 --screenshot="$pictures/$1" "file://$3" >/dev/null 2>&1
}
tamblewickc list --template 2 'D:\Photo archive' -o 'D:\list.html'
browse list.png 640,664 "$work/d/list.html"
tamblewickc list --template 2 'D:\Photo archive' -f report -o 'D:\report.html'
browse report.png 1000,1150 "$work/d/report.html"

# A new preset comes above all others.
for preset in '0 Plain text index' '5 Repository' '4 Videos' '3 Music' '2 Photo archive'; do
    tamblewickc presets new "${preset%% *}" "${preset#* }"
done
start_program
wait_for "the main window" find_window "Tamblewick $version"
window=$found
xdotool mousemove 1279 1023
xdotool windowsize --sync "$window" 640 432
sleep 1
# Opens the first preset and goes to its third page.
click_at 60 40
xdotool mousemove 1279 1023
xdotool key --delay 200 Right Down Down Down
sleep 1
import -frame -window "$window" "$pictures/main-window.png"
xdotool key alt+F4
await_program
git status --short docs/pictures
