# What run.sh, test.sh and the benchmarks share: packages, builds, Wine. Sourced, with the repository's root as
# the current folder.

# C.UTF-8 is on every machine: names outside ASCII survive, and the locale is the same everywhere.
export LC_ALL=C.UTF-8
# No installers for parts of Wine that are not used, no menu entries on the machine's desktop.
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'

# The version of all programs and packages.
version=$(sed -n 's/^project(tamblewick VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

buildPackages=(cmake ninja-build g++-mingw-w64-x86-64-posix libutfcpp-dev nlohmann-json3-dev nettle-dev node-d3-hierarchy
    googletest)
winePackages=(wine wine64 xvfb openbox)
# What tests with pictures, a mouse and keys need.
displayPackages=(xdotool imagemagick fonts-dejavu-core)
# A browser that tests control.
browserPackages=(chromium chromium-driver python3-selenium fonts-dejavu-core)

fail() {
    echo "$*" >&2
    exit 1
}

# Runs a long step with its output in a file; shows the output only if the step fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >"$log" 2>&1; then
        tail -n 100 "$log" >&2
        fail "failed: $*"
    fi
}

# Installs those of the packages that are missing.
install_packages() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    [ "$(id -u)" = 0 ] || fail "These packages are missing; install them as root: ${missing[*]}"
    echo "Installing ${missing[*]} ..."
    quietly build/logs/apt.log env DEBIAN_FRONTEND=noninteractive apt-get update
    quietly build/logs/apt.log env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# build_preset PRESET [TARGET...]: configures and builds into build/PRESET.
build_preset() {
    local preset=$1
    shift
    echo "Building $preset ..."
    quietly "build/logs/configure-$preset.log" cmake --preset "$preset"
    quietly "build/logs/build-$preset.log" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# Unpacks the portable zip that package.sh has made to where the tests look for it.
unpack_portable() {
    rm -rf 'build/portable copy v4.0'
    unzip -q -d 'build/portable copy v4.0' build/packages/*-portable.zip
}

# Where the Wine prefixes are. A prefix that another version of Wine has used is converted by it.
prefixes=${PREFIXES:-build}

# use_wine NAME: makes the folder of this name below $prefixes the Wine prefix, building it the first time. The
# background processes of Wine are started apart from any pipe that a caller reads, and ended by stop_wine.
use_wine() {
    export WINEPREFIX=$PWD/$prefixes/$1
    if [ ! -f "$WINEPREFIX/.complete" ]; then
        echo "Making a Wine prefix in $prefixes/$1 ..."
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX"
        quietly "build/logs/$1.log" env -u DISPLAY wineboot -i
        wine winecfg -v win10 >/dev/null 2>&1
        # A program that crashes ends at once instead of waiting for a debugger.
        wine reg add 'HKCU\Software\Wine\DllOverrides' /v winedbg.exe /d '' /f >/dev/null 2>&1
        wineserver -w
        touch "$WINEPREFIX/.complete"
    fi
    # Fails if the server of an interrupted run is still there, which will do.
    wineserver -p 2>/dev/null || true
    wine cmd /c exit </dev/null >/dev/null 2>&1
}

# The server may have ended by itself.
stop_wine() {
    wineserver -k || true
}

# Windows without a display: dialogs, focus and input work, nothing is drawn.
use_null_display() {
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
}

# Starts an X server of our own with a window manager and makes it the display; stop_display ends both.
start_display() {
    local number
    mkdir -p build/logs
    exec {displayPipe}<> <(:)
    Xvfb -displayfd "$displayPipe" -screen 0 1280x1024x24 -nolisten tcp 2>build/logs/xvfb.log &
    xvfbProcess=$!
    read -r -t 20 number <&"$displayPipe" || fail "Xvfb did not start; see build/logs/xvfb.log"
    export DISPLAY=:$number
    openbox >build/logs/openbox.log 2>&1 &
    openboxProcess=$!
}

# Either may have gone already; their end is no result of anything.
stop_display() {
    [ -z "${openboxProcess:-}" ] || kill "$openboxProcess" 2>/dev/null || true
    [ -z "${xvfbProcess:-}" ] || kill "$xvfbProcess" 2>/dev/null || true
}
