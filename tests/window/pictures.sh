#!/usr/bin/env bash
# Compares a picture of each page and dialog with the one of the same name in pictures/.
#
#   pictures.sh PROGRAM PROGRESS_WINDOW REPORT
#   pictures.sh PROGRAM PROGRESS_WINDOW --renew
#
# PROGRESS_WINDOW is the program of ProgressWindow.cpp: a list of the real program is over too soon. REPORT is the
# file for the results in the format of JUnit. --renew replaces the pictures instead (scripts/renew-pictures.sh).
#
# A picture that differs is kept as build/logs/pictures/NAME.png. If it has the size of the other one,
# NAME-difference.png marks the pixels in red.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
program=$(readlink -f "$1")
progressWindow=$(readlink -f "$2")
report=$3
cd "$here/../.."
. scripts/common.sh
. tests/window/window.sh

# Font and version of Wine are fixed, so that two runs give the same pixels. The tolerance is for another version of
# the font renderer: a pixel differs if its colour does so by more than this share, which lies above what smoothing
# changes at the edges of letters and below the contrast of the palest frames. The number of pixels that may differ
# is below that of the smallest thing that could change, such as a digit or a tick.
colourTolerance=20%
pixelTolerance=8

taken=build/logs/pictures
rm -rf "$taken"
mkdir -p "$taken"
cases=()
failures=0

write_report() {
    mkdir -p "$(dirname "$report")"
    {
        echo "<testsuites tests=\"${#cases[@]}\" failures=\"$failures\" errors=\"0\">"
        printf '%s\n' "${cases[@]}"
        echo "</testsuites>"
    } >"$report"
}

# take NAME WINDOW [MASK]: the client area and the menu. MASK is a rectangle to blacken, "LEFT,TOP,RIGHT,BOTTOM".
take() {
    import -window "$2" miff:- |
        convert - ${3:+-fill black -draw "rectangle $3"} -strip -define png:exclude-chunks=date,time \
            "$taken/$1.png"
}

size_of() {
    identify -format '%wx%h' "$1"
}

matches() {
    local expected=$here/pictures/$1.png actual=$taken/$1.png different
    take "$@"
    # compare passes over what lies outside of one of the two pictures.
    [ "$(size_of "$expected")" = "$(size_of "$actual")" ] || return 1
    # Its exit code is 1 as soon as one pixel differs.
    different=$(compare -metric AE -fuzz "$colourTolerance" "$expected" "$actual" "$taken/$1-difference.png" 2>&1) ||
        true
    [[ $different =~ ^[0-9]+$ && $different -le $pixelTolerance ]]
}

# Whether the window looks as it did a second ago, and not as in the last picture.
settled() {
    local before
    take "$@"
    before=$(sha256sum <"$taken/$1.png")
    sleep 1
    take "$@"
    [[ $(sha256sum <"$taken/$1.png") == "$before" && $before != "${lastPicture:-}" ]]
}

renew() {
    wait_for "a picture of $1 that stays" settled "$@"
    lastPicture=$(sha256sum <"$taken/$1.png")
    mv "$taken/$1.png" "$here/pictures"
}

# check NAME WINDOW [MASK]: compares, or renews. The window may still be drawing, so it has some seconds to match.
check() {
    local end=$((SECONDS + 15))
    if [ "$report" = --renew ]; then
        renew "$@"
        return
    fi
    until matches "$@"; do
        if [ $SECONDS -ge $end ]; then
            echo "The picture of $1 differs; see $taken."
            cases+=("<testcase classname=\"Pictures\" name=\"$1\"><failure/></testcase>")
            failures=$((failures + 1))
            return
        fi
        sleep 0.1
    done
    cases+=("<testcase classname=\"Pictures\" name=\"$1\"/>")
    rm "$taken/$1.png" "$taken/$1-difference.png"
}

# The main window, with the mouse out of the way.
open_main_window() {
    start_program
    wait_for "the main window" find_window 'Tamblewick 4.0.1'
    window=$found
    xdotool mousemove 1279 1023
}

close_main_window() {
    xdotool key alt+F4
    await_program
}

# check_dialog NAME KEY TITLE: of the menu's dialogs.
check_dialog() {
    xdotool key "$2"
    wait_for "the dialog $3" find_window "$3"
    check "$1" "$found"
    xdotool key Escape
    wait_for "the main window after $3" find_window 'Tamblewick 4.0.1'
}

if [[ $(wine --version) != wine-8.0* ]]; then
    echo "Nothing is compared: the pictures show what Wine 8.0 draws."
    [ "$report" != --renew ] || exit 1
    write_report
    exit 0
fi

open_desktop
# An insertion point that does not blink.
wine reg add 'HKCU\Control Panel\Desktop' /v CursorBlinkRate /d -1 /f >/dev/null 2>&1

open_main_window
check instructions "$window"
close_main_window

wine reg import "Z:$here/pictures/settings.reg" </dev/null >/dev/null 2>&1
open_main_window
check format "$window"
click_at 60 40
xdotool mousemove 1279 1023
xdotool key Right
for page in display filter columns sorting saving opening; do
    xdotool key Down
    check "$page" "$window"
done
xdotool key Home F2
check rename "$window"
xdotool key Escape
check_dialog options F7 Options
check_dialog about F1 About
close_main_window

wine "$progressWindow" </dev/null >/dev/null 2>&1 &
helper=$!
wait_for "the progress dialog" find_window Tamblewick
# Of the moving bar only the frame.
check progress "$found" 17,67,497,87

[ "$report" = --renew ] || write_report
[ $failures = 0 ] || fail "$failures of ${#cases[@]} pictures differ."
