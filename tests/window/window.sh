# What the scripts beside this one share: a desktop with a window manager and a registry without presets, the
# program started on it, waiting for windows. Sourced after scripts/common.sh, with `program` set.

# Wine shows the home folder's "Desktop" as its own, and its folder dialog selects the desktop at first.
export HOME=$PWD/build/wine-window-home
unset XDG_CONFIG_HOME
# The look depends on the font, and what is installed differs from machine to machine. This one comes with
# fontconfig.
font='DejaVu Sans'

open_desktop() {
    trap close_desktop EXIT
    install_font
    start_display >/dev/null
    use_wine wine-window
    substitute_font
    # In a fresh prefix there is no such key.
    wine reg delete 'HKCU\Software\Tamblewick' /f </dev/null >/dev/null 2>&1 || true
}

# After a failure build/logs/window.png shows the screen.
close_desktop() {
    local result=$? running
    # The result is known already; a picture of the failure and the clean-up may fail.
    [ $result = 0 ] || import -window root build/logs/window.png || true
    for running in "${process:-}" "${helper:-}"; do
        [ -z "$running" ] || kill "$running" 2>/dev/null || true
    done
    stop_wine
    stop_display
    exit $result
}

# Makes a configuration in which there is no other font.
install_font() {
    local folder=$PWD/build/wine-window-home/fonts file
    mkdir -p "$folder"
    for file in DejaVuSans.ttf DejaVuSans-Bold.ttf; do
        cp -u "/usr/share/fonts/truetype/dejavu/$file" "$folder"
    done
    export FONTCONFIG_FILE=$folder/fonts.conf
    cat >"$FONTCONFIG_FILE" <<END
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>$folder</dir>
  <cachedir>$folder/cache</cachedir>
  <match target="pattern">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="hinting" mode="assign"><bool>true</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintfull</const></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
</fontconfig>
END
}

# Windows' own font would be taken first if it were there.
substitute_font() {
    local name
    for name in Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2'; do
        wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes' \
            /v "$name" /d "$font" /f >/dev/null 2>&1
    done
}

# start_program [ARGUMENT...]: sets `process`.
start_program() {
    wine "$program" "$@" </dev/null >/dev/null 2>&1 &
    process=$!
}

# Waits for the end of the program, which must be a good one.
await_program() {
    wait_for "the end of the program" ended
    wait "$process" || fail "The program ended with $?."
    process=
}

ended() {
    ! kill -0 "$process"
}

# wait_for WHAT COMMAND...: until the command succeeds, for at most 30 seconds.
wait_for() {
    local what=$1 end=$((SECONDS + 30))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || fail "Waited in vain for $what."
        sleep 0.1
    done
}

# find_window NAME: sets `found` to the visible window of exactly this title, which must be the active one.
find_window() {
    found=$(xdotool search --onlyvisible --name "^$1\$") && [ "$(xdotool getactivewindow)" = "$found" ]
}

# move_to X Y: in the client area of the main window, whose id is `window`.
move_to() {
    xdotool mousemove --window "$window" "$1" "$2"
}

# Followed by a small move: the tree does not pass on the release of the button, and only this move ends its wait for
# a drag.
click_at() {
    move_to "$1" "$2"
    xdotool click 1 mousemove_relative 1 0
}
