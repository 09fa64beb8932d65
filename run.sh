#!/usr/bin/env bash
# Builds the real program and runs it under Wine.
#
#   ./run.sh [--text] [FOLDER]      an HTML list, or with --text a text list, of FOLDER (default: src)
#   ./run.sh --window               the main window; without a display a picture of it
set -euo pipefail

mode=list
template=2
case "${1:-}" in
    --text) template=0; shift ;;
    --window) mode=window; shift ;;
    --*) echo "usage: ./run.sh [--text] [FOLDER] | ./run.sh --window" >&2; exit 1 ;;
esac
[ $# -le 1 ] || { echo "usage: ./run.sh [--text] [FOLDER] | ./run.sh --window" >&2; exit 1; }
root=$(dirname "$(readlink -f "$0")")
# Not the whole repository: a Wine prefix below build/ leads to the whole disk.
folder=${1:-$root/src}
[ -d "$folder" ] || { echo "There is no folder '$folder'." >&2; exit 1; }
folder=$(readlink -f "$folder")

cd "$root"
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}"
build_preset windows tamblewick tamblewickc contextmenu
trap 'stop_wine; stop_display' EXIT

# Without a display of somebody's there is nobody to open a list or a window for.
headless=
if [ -z "${DISPLAY:-}" ]; then
    headless=yes
    start_display
fi
use_wine wine

if [ "$mode" = window ]; then
    if [ -z "$headless" ]; then
        wine build/windows/tamblewick.exe
        exit
    fi
    install_packages imagemagick xdotool
    wine build/windows/tamblewick.exe &
    program=$!
    xdotool search --sync --onlyvisible --name "^Tamblewick $version\$" >/dev/null
    # The window is there before it has painted itself.
    sleep 1
    import -window root build/window.png
    # The picture is taken; the program may have ended by itself.
    kill "$program" 2>/dev/null || true
    echo "A picture of the window is build/window.png"
    exit
fi

open=
[ -n "$headless" ] || open=--open
# Not a pipe: the processes that Wine starts beside the program would keep it open.
printed=$(mktemp)
wine build/windows/tamblewickc.exe list --template "$template" "$(winepath -w "$folder" 2>/dev/null)" \
    --progress never $open >"$printed" 2>/dev/null
list=$(winepath -u "$(cat "$printed")" 2>/dev/null)
rm -f "$printed"

echo "The list of $folder is $list"
echo
# The first lines; of a page without its style sheet.
awk '/<style/ { hidden = 1 }
    !hidden { sub(/\r$/, ""); print; if (++shown == 40) exit }
    /<\/style>/ { hidden = 0 }' "$list"
