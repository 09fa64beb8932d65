#!/usr/bin/env bash
# Opens reports in Chromium and uses them as a reader does: report_test.py.
#
#   report.sh MAKE_REPORT RESULTS [TEST...]
#
# MAKE_REPORT is the program that writes the reports; the results go to the XML file RESULTS. The default is all tests.
set -euo pipefail
folder=$(dirname "$(readlink -f "$0")")
cd "$folder/../.."
. scripts/common.sh

install_packages "${browserPackages[@]}"
# Selenium is a package of the system's own Python.
TZ=UTC exec /usr/bin/python3 "$folder/report_test.py" "$@"
