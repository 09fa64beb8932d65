#!/usr/bin/env bash
# Runs a test program whose windows are drawn: on a display of its own, in a Wine prefix that uses it.
#
#   on-display.sh PROGRAM ARGUMENT...
set -euo pipefail
program=$(readlink -f "$1")
shift
cd "$(dirname "$(readlink -f "$0")")/../.."
. scripts/common.sh

# The prefix is that of walk.sh, which needs this home folder in it.
export HOME=$PWD/build/wine-window-home
unset XDG_CONFIG_HOME

finish() {
    local result=$?
    stop_wine
    stop_display
    exit $result
}

trap finish EXIT
start_display >/dev/null
use_wine wine-window
# A file, since Wine's background processes would keep a pipe.
output=$(mktemp)
result=0
wine "$program" "$@" </dev/null >"$output" 2>&1 || result=$?
cat "$output"
rm "$output"
exit $result
