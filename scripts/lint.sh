#!/usr/bin/env bash
# Checks the format of all sources with clang-format, and those of the programs with clang-tidy as they are built
# for Windows. Prints what is wrong; exit code 1 if anything is.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh

install_packages "${buildPackages[@]}" clang clang-format clang-tidy git

git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror

[ -f build/windows/compile_commands.json ] || build_preset windows

# clang reads the headers of mingw-w64 in the order of its own compiler, but for the compiler's own folder.
arguments=(-p build/windows --quiet --extra-arg=--target=x86_64-w64-mingw32)
while read -r folder; do
    arguments+=("--extra-arg=-isystem$folder")
done < <(x86_64-w64-mingw32-g++-posix -E -x c++ -v /dev/null 2>&1 |
    sed -n '/^#include </,/^End of search/s/^ //p' | grep -v 'posix/include$')

mkdir -p build/logs
git ls-files 'src/*.cpp' 'contextmenu/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy "${arguments[@]}" 2>build/logs/clang-tidy.log
