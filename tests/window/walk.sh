#!/usr/bin/env bash
# One walk through the main window of the built program with a real mouse and real keys: presets made, renamed,
# reordered and changed, a list made, the window closed. What the walk leaves in the registry, which is empty at
# its start, is compared value by value with expected-registry.txt.
#
#   walk.sh PROGRAM FRAME_SIZE
#
# FRAME_SIZE is the program of FrameSize.cpp.
#
# The points to click count from the corners of the window's client area, whose parts keep their distance from
# them. After a failure build/logs/window.png shows the screen.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
program=$(readlink -f "$1")
frameSize=$(readlink -f "$2")
cd "$here/../.."
. scripts/common.sh
. tests/window/window.sh

firstName='All files (Simple, Text)'
secondName='All files (Details, HTML)'
newName='Photo archive'
# Of the window's client area and menu.
newWidth=640
newHeight=400

# The registry as sorted lines "PRESET\SECTION\VALUE TYPE DATA", with the presets' names for their random keys.
settings() {
    wine reg query 'HKCU\Software\Tamblewick' /s 2>/dev/null | tr -d '\r' | awk -F '    ' '
        /^HKEY/ { path = substr($0, length("HKEY_CURRENT_USER\\Software\\Tamblewick\\") + 1) }
        /^    / {
            paths[++count] = path
            lines[count] = $2 " " $3 ($4 == "" ? "" : " " $4)
            if ($2 == "Name") names[path] = $4
        }
        END {
            for (i = 1; i <= count; ++i) {
                key = section = paths[i]
                sub(/\\.*/, "", key)
                section = substr(section, length(key) + 1)
                print (key in names ? names[key] : key) section (key == "" ? "" : "\\") lines[i]
            }
        }' | sort
}

# What `settings` must give in the end.
expected_settings() {
    local frameWidth frameHeight
    read -r frameWidth frameHeight < <(wine "$frameSize" 2>/dev/null | tr -d '\r')
    {
        cat "$here/expected-registry.txt"
        printf 'WindowWidth REG_DWORD 0x%x\n' $((newWidth + frameWidth))
        printf 'WindowHeight REG_DWORD 0x%x\n' $((newHeight + frameHeight))
    } | sort
}

# has LINE: whether the registry has this line of `settings`.
has() {
    grep -qxF "$1" <<<"$(settings)"
}

# The key of a new preset is drawn from the C runtime's generator, which the second seeds: two presets of one
# second share a key, and one draw in 37 makes the key empty.
usable_second() {
    local second
    for second in "$(date +%s)" "$(($(date +%s) + 1))" "$(($(date +%s) + 2))"; do
        [ "$second" -gt "$lastSecond" ] || return 1
        [ $(((((second * 214013 + 2531011) >> 16) & 32767) % 37)) != 36 ] || return 1
    done
}

# new_from_template NUMBER NAME: by the keys of the menu, where the template is NUMBER rows down.
new_from_template() {
    local row downs=()
    for ((row = 0; row < $1; ++row)); do downs+=(Down); done
    wait_for "a second that gives a key" usable_second
    xdotool key alt+f Down Right "${downs[@]}" Return
    wait_for "a preset from template $1" has "$2\\Position REG_DWORD 0x1"
    lastSecond=$(date +%s)
}

# has_size WIDTH HEIGHT: of the window's client area and menu.
has_size() {
    xdotool getwindowgeometry "$window" | grep -q "Geometry: $1x$2\$"
}

# The tree begins 10 pixels from the left and below the menu, each item is 18 high.
itemX=60
item_y() {
    echo $((22 + 18 * $1))
}

# What is drawn where the second item of the tree ends.
picture_below_second_item() {
    import -window "$window" -crop "150x4+20+$(($(item_y 2) + 8))" rgb:- | sha256sum
}

# Moves to and fro in the second item, as a hand does, until the mark of the drop shows.
drop_is_marked() {
    wiggle=$((1 - ${wiggle:-0}))
    move_to $((itemX + wiggle)) "$(item_y 2)"
    [ "$(picture_below_second_item)" != "$pictureBefore" ]
}

drag_first_below_second() {
    pictureBefore=$(picture_below_second_item)
    move_to $itemX "$(item_y 1)"
    xdotool mousedown 1 mousemove_relative 0 1 mousemove_relative 0 6
    wait_for "the mark of the drop" drop_is_marked
    xdotool mouseup 1
    wait_for "the new order" has "$firstName\\Position REG_DWORD 0x1"
}

# Under Wine 10 the window manager sometimes still holds the progress dialog active, which has gone.
main_window_is_active() {
    find_window 'Tamblewick 4.0.1' && return
    [[ $(wine --version) != wine-10.* ]] || xdotool windowactivate "$window"
    return 1
}

list_is_complete() {
    list=$(find "$WINEPREFIX/drive_c/users/" -name 'List of Desktop*.html')
    [ -n "$list" ] && tail -c 20 "$list" | grep -q '</html>'
}

mkdir -p "$HOME/Desktop/Holidays"
echo picture >"$HOME/Desktop/Holidays/beach.jpg"
echo text >"$HOME/Desktop/notes.txt"

open_desktop
find "$WINEPREFIX/drive_c/users/" -name 'List of *' -delete

start_program
wait_for "the main window" find_window 'Tamblewick 4.0.1'
window=$found
eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(WIDTH|HEIGHT)=')"
[ -z "$(settings)" ] || fail "The start wrote to the registry."

lastSecond=0
new_from_template 0 "$firstName"
new_from_template 2 "$secondName"

# The new preset is the selected one.
xdotool key F2
xdotool type "$newName"
xdotool key Return
wait_for "the new name" has "$newName\\Name REG_SZ $newName"

drag_first_below_second

# The preset that is on top now, its last page, the second choice there. Where the drag began a click might
# count as the second one of a double click.
click_at $((itemX + 20)) "$(item_y 1)"
xdotool key Right Down Down Down Down Down Down
click_at $((WIDTH - 250)) 85
wait_for "the choice not to open the list" has "$newName\\Opening\\OpenMethod REG_SZ Nothing"

click_at $((WIDTH - 60)) $((HEIGHT - 25))
wait_for "the folder dialog" find_window 'Browse for Folder'
xdotool key Return
wait_for "a complete list" list_is_complete
for name in Holidays beach.jpg notes.txt; do
    grep -qF "$name" "$list" || fail "The list does not name $name."
done
wait_for "the main window after the list" main_window_is_active

# The window manager makes the window larger; Wine counts its own frame to the window.
xdotool windowsize "$window" $newWidth $newHeight
wait_for "the new size" has_size $newWidth $newHeight
xdotool key alt+F4
await_program

diff <(expected_settings) <(settings) ||
    fail "The registry (>) differs from what is expected (<)."
