#!/usr/bin/env bash
# Measures reports in Chromium: how large they are, and how long a reader waits for them: report_times.py. Prints a
# table in Markdown.
#
#   bench/report.sh [ROUNDS]       default: 5
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages "${buildPackages[@]}" "${browserPackages[@]}" g++
build_preset native make_report
exec /usr/bin/python3 bench/report_times.py build/native/make_report "${1:-5}"
