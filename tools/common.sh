# What ./compile, ./run, ./package and ./test share. To be sourced by bash, with $journal set to the folder of this
# repository.
# shellcheck shell=bash

# --- talking -----------------------------------------------------------------------------------------------------

say() { printf '%s: %s\n' "${0##*/}" "$*"; }
die() {
    printf '%s: error: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# --- places ------------------------------------------------------------------------------------------------------

# Where programs keep what belongs to this person. A relative path in the variable does not count, as everywhere.
data_home=${XDG_DATA_HOME-}
[[ $data_home == /* ]] || data_home=$HOME/.local/share

# --- installing --------------------------------------------------------------------------------------------------

# Each need is "<what must be there>:<the Debian package that brings it>". A path is looked at, a word is looked up in
# PATH; so what somebody installed in another way counts as well, and a machine that has everything is never asked
# for a network or a password.
lib=/usr/lib/x86_64-linux-gnu
needs_build=(
    cmake:cmake ninja:ninja-build
    x86_64-w64-mingw32-gcc-posix:gcc-mingw-w64-x86-64-posix
    x86_64-w64-mingw32-g++-posix:g++-mingw-w64-x86-64-posix
    x86_64-w64-mingw32-windres:binutils-mingw-w64-x86-64
)
needs_fetch=(npm:npm /etc/ssl/certs/ca-certificates.crt:ca-certificates)
# Wine loads the X libraries at run time; without them it has no windows or no cursor, and says nothing.
needs_run=(
    wine:wine /usr/lib/wine/wine64:wine64 xdotool:xdotool
    $lib/libXcomposite.so.1:libxcomposite1 $lib/libXcursor.so.1:libxcursor1 $lib/libXfixes.so.3:libxfixes3
    $lib/libXi.so.6:libxi6 $lib/libXinerama.so.1:libxinerama1 $lib/libXrandr.so.2:libxrandr2
    $lib/libXrender.so.1:libxrender1
    /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf:fonts-dejavu-core
    /usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf:fonts-liberation
)
# What makes the journal look as it should, and finds the fonts of the desktop.
needs_fonts=(/usr/share/wine/fonts/tahoma.ttf:fonts-wine fc-match:fontconfig)
needs_display=(Xvfb:xvfb openbox:openbox xprop:x11-utils import:imagemagick)
needs_package=(makensis:nsis)
needs_test=(
    /usr/src/googletest/CMakeLists.txt:googletest ld.lld:lld
    clang-format:clang-format git:git python3:python3 desktop-file-validate:desktop-file-utils
)

# install_missing <need>...
# Installs the packages of those needs that are not met; does nothing at all when everything is there.
install_missing() {
    local need probe packages=()
    for need in "$@"; do
        probe=${need%:*}
        if [[ $probe == /* ]]; then
            [[ -e $probe ]] || packages+=("${need##*:}")
        else
            command -v "$probe" >/dev/null || packages+=("${need##*:}")
        fi
    done
    ((${#packages[@]})) || return 0

    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || die "missing: ${packages[*]}. Install them as root: apt-get install ${packages[*]}"
        as_root=(sudo)
    fi
    command -v apt-get >/dev/null || die "missing: ${packages[*]}. They are Debian's names; this machine has no apt-get."
    say "installing ${packages[*]}"
    # No package may stop to ask something: there may be nobody to answer.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q update >"$journal/build/apt.log" 2>&1 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends install \
            "${packages[@]}" >>"$journal/build/apt.log" 2>&1 ||
        die "apt-get failed; its last words (all of them in build/apt.log):
$(tail -n 12 "$journal/build/apt.log")"
}

# fetch_third_party
# Unpacks the packages of third_party/package-lock.json, whose hashes npm checks. A copy of the lock file beside them
# tells the next call that nothing changed.
fetch_third_party() {
    local lock=$journal/third_party/package-lock.json fetched=$journal/third_party/node_modules/.fetched-lock.json
    cmp -s "$lock" "$fetched" && return 0
    install_missing "${needs_fetch[@]}"
    say "fetching SQLite's sources (third_party/package.json)"
    # Of what npm says only its complaints are of interest, not newer versions of itself.
    (cd "$journal/third_party" &&
        npm ci --ignore-scripts --no-audit --no-fund --no-update-notifier --loglevel=error >"$journal/build/npm.log") ||
        die "npm could not fetch the packages of third_party"
    cp "$lock" "$fetched"
}

# --- building ----------------------------------------------------------------------------------------------------

# tell_tenths
# Reads Ninja's "[12/345] ..." and prints each tenth of the way once. A build of a few steps says nothing.
tell_tenths() {
    awk -F'[][/]' '/^\[[0-9]+\/[0-9]+\]/ && $3 >= 20 {
        tenth = int($2 * 10 / $3)
        if (tenth > told) { print "  " tenth "0 %"; fflush(); told = tenth }
    }'
}

# build_preset <release|checked> [<target>...]
# Configures when that was not done yet (afterwards Ninja sees to it) and builds everything, or those targets. Ninja's
# list of steps is shown only when somebody looks on; a file gets a line for each tenth of the way.
build_preset() {
    local folder=$journal/build log build=(cmake --build --preset "$1")
    (($# > 1)) && build+=(--target "${@:2}")
    [[ $1 == checked ]] && folder=$journal/build/checked
    log=$folder/build.log
    mkdir -p "$folder"
    if [[ ! -e $folder/build.ninja ]]; then
        say "configuring the $1 build"
        (cd "$journal" && cmake --preset "$1") >"$log" 2>&1 || {
            tail -n 40 "$log" >&2
            rm -f "$folder/build.ninja" "$folder/CMakeCache.txt"
            die "cannot configure"
        }
    fi
    say "building ($1)"
    if [[ -t 1 ]]; then
        (cd "$journal" && "${build[@]}") || die "the build failed"
    else
        (cd "$journal" && "${build[@]}" 2>&1 | tee "$log" | tell_tenths; exit "${PIPESTATUS[0]}") || {
            grep -v '^\[[0-9]*/[0-9]*\] ' "$log" | tail -n 200 >&2
            die "the build failed"
        }
    fi
}

# --- Wine --------------------------------------------------------------------------------------------------------

# No .NET and no HTML engine are offered for download, nothing is entered in the desktop's menus, and a crash ends the
# program at once instead of opening a debugger's window. -all also keeps Wine from asking for its 32-bit half.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe=d;winemenubuilder.exe=d"
export WINEDEBUG=${WINEDEBUG--all}
export WINEARCH=win64

# make_prefix <folder>
# Makes a Wine prefix, about 20 seconds of work, unless it is there already. It gets its name only when it is complete,
# so that an interrupted run leaves nothing half made behind.
make_prefix() {
    [[ -d $1 ]] && return 0
    say "preparing Wine's folder $1 (once, about 20 seconds)"
    rm -rf "$1.new"
    mkdir -p "$1.new"
    if ! env -u DISPLAY WINEPREFIX="$1.new" wineboot -i >"$1.new/wineboot.log" 2>&1 ||
        ! WINEPREFIX="$1.new" wineserver -w || [[ ! -e $1.new/system.reg ]]; then
        cat "$1.new/wineboot.log" >&2
        die "Wine could not prepare its folder"
    fi
    mv "$1.new" "$1"
}

# --- displays ----------------------------------------------------------------------------------------------------

display_pids=()

# wait_until <seconds> <command>...
# Runs the command again and again until it succeeds; fails when the time is over.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.05
    done
}

# Tells whether this script was given a display. One reached through a network is believed; of a local one the socket
# must be there.
display_is_there() {
    local number=${DISPLAY-}
    [[ -n $number ]] || return 1
    [[ $number == :* ]] || return 0
    number=${number#:}
    [[ -S /tmp/.X11-unix/X${number%%.*} ]]
}

# start_display <width>x<height>
# Starts a virtual display with a small window manager (without one, Wine waits seconds for every window to be placed)
# and makes it this script's display. stop_display ends both.
start_display() {
    local number=$journal/build/display.$$
    rm -f "$number"
    Xvfb -displayfd 9 -screen 0 "$1x24" -nolisten tcp -noreset 9>"$number" >"$journal/build/xvfb.log" 2>&1 &
    display_pids+=($!)
    wait_until 20 test -s "$number" || die "Xvfb does not start: $(cat "$journal/build/xvfb.log")"
    export DISPLAY=:$(<"$number")
    rm -f "$number"
    # With a folder of its own instead of the user's settings: every display looks the same.
    XDG_CONFIG_HOME=$journal/build/display-settings openbox --sm-disable >"$journal/build/openbox.log" 2>&1 &
    display_pids+=($!)
    wait_until 20 window_manager_is_there || die "openbox does not start: $(cat "$journal/build/openbox.log")"
}

window_manager_is_there() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

stop_display() {
    ((${#display_pids[@]})) && kill "${display_pids[@]}" 2>/dev/null
    display_pids=()
}
