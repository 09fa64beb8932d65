#!/usr/bin/env bash
# Makes a list of a folder with the real program: builds it, gives it a preset and runs it in batch mode.
#
#   ./run.sh [--text] [FOLDER]      an HTML list, or with --text a text list, of FOLDER (default: this repository)
set -euo pipefail

template=2
if [ "${1:-}" = --text ]; then
    template=0
    shift
fi
[ $# -le 1 ] || { echo "usage: ./run.sh [--text] [FOLDER]" >&2; exit 1; }
root=$(dirname "$(readlink -f "$0")")
[ -d "${1:-$root}" ] || { echo "There is no folder '$1'." >&2; exit 1; }
folder=$(readlink -f "${1:-$root}")

cd "$root"
. scripts/common.sh

install_packages "${buildPackages[@]}" "${winePackages[@]}"
build_preset windows tamblewick presets
trap 'stop_wine; stop_display' EXIT

# Without a display there is nobody to show the list to, so it is not opened.
open=Default
if [ -z "${DISPLAY:-}" ]; then
    start_display
    open=Nothing
fi
use_wine wine

presets() {
    wine build/windows/presets.exe "$@" 2>/dev/null | tr -d '\r'
}

name="run.sh, template $template"
key=$(presets list | awk -F '\t' -v name="$name" '$3 == name { print $1; exit }')
[ -n "$key" ] || key=$(presets new "$template" "$name")
wine reg add "HKCU\\Software\\Tamblewick\\$key\\Opening" /v OpenMethod /d "$open" /f >/dev/null 2>&1

temp=$(readlink -f "$(winepath -u "$(wine cmd /c 'echo %TEMP%' 2>/dev/null | tr -d '\r')" 2>/dev/null)")
started=$(mktemp)
wine build/windows/tamblewick.exe "$key" "$(winepath -w "$folder" 2>/dev/null)"
list=$(find "$temp" -maxdepth 1 -name 'List of *' -newer "$started" -print -quit)
rm -f "$started"
[ -n "$list" ] || fail "No list was written."

echo "The list of $folder is $list"
echo
# Of a page, what stands behind its style sheet.
sed '1,/<\/style>/ { /^\s*<style/,/<\/style>/ d }' "$list" | head -n 40 | tr -d '\r'
