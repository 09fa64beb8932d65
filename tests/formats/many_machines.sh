#!/usr/bin/env bash
# Installs DuckDB and runs the queries of docs/many-machines.md: many_machines.py.
#
#   many_machines.sh RESULTS
#
# The results go to the XML file RESULTS.
set -euo pipefail
folder=$(dirname "$(readlink -f "$0")")
cd "$folder/../.."
. scripts/common.sh

command -v npm >/dev/null || install_packages nodejs npm
modules=$PWD/build/duckdb
duckdb=@duckdb/node-api@1.5.6-r.1
if [ ! -f "$modules/complete" ]; then
    rm -rf "$modules"
    mkdir -p "$modules"
    quietly build/logs/npm.log npm install --no-audit --no-fund --prefix "$modules" "$duckdb"
    touch "$modules/complete"
fi
exec python3 "$folder/many_machines.py" docs/many-machines.md "$modules" "$@"
