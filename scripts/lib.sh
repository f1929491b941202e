# Shared by the scripts of this folder, which source it. It leaves the caller in the project's
# root folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build_packages=(
    g++ cmake ninja-build
    sqlite3                                # makes the empty database
    qt6-base-dev libqt6sql6-sqlite
    qt6-base-private-dev                   # a test unplugs a screen
    libcups2-dev
    fonts-liberation                       # stands in for Arial, the board's first font
    x11-utils                              # xdpyinfo: can the display be opened?
)
# A virtual display with a window manager, a keyboard for it, and a camera.
display_packages=(xvfb openbox xdotool imagemagick procps)
# Two screens on a graphics card without hardware, and a desktop's session bus.
two_screens_packages=(xserver-xorg-core xserver-xorg-video-dummy dbus-daemon)
test_packages=(
    "${build_packages[@]}" "${display_packages[@]}" "${two_screens_packages[@]}"
    clang-format
    cups cups-client cups-filters printer-driver-cups-pdf poppler-utils # print and read the page
    desktop-file-utils appstream           # check what the desktop is told
    at-spi2-core python3-pyatspi           # and what a screen reader is told
)
windows_packages=("${build_packages[@]}" g++-mingw-w64-x86-64-posix qt6-base-dev-tools)

# need_packages NAME...: installs what is missing of these Debian packages. When nothing is
# missing the package manager is not asked at all; on another kind of system it says what is wanted.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not a Debian system; please see to it that these are there: $*" >&2
        return
    fi
    local installed name missing=()
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for name; do
        [[ $'\n'$installed$'\n' == *$'\n'"installed $name"$'\n'* ]] || missing+=("$name")
    done
    ((${#missing[@]} == 0)) || install_packages "${missing[@]}"
}

install_packages() {
    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || {
            echo "Please install these packages as root first: $*" >&2
            return 1
        }
        as_root=(sudo)
    fi
    echo "Installing $*"
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "$@"
}

# build PRESET [TARGET...]: brings what the preset makes up to date. CMake watches its own files but not the
# presets.
build() {
    local folder=build
    [[ $1 == release ]] || folder=build/$1
    if [[ ! -e $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
        cmake --preset "$1"
    fi
    cmake --build --preset "$1" ${2:+--target "${@:2}"}
}

# find_windows_qt: points RANKELO_WINDOWS_QT at a Qt for Windows: the folder that it names already,
# the one in build/ that an earlier run left, or one unpacked from the archive that lies beside
# this checkout. False when there is none.
find_windows_qt() {
    local archive=(../shared/windows-qt-*.tar.xz) made=build/windows-qt
    if [[ -z ${RANKELO_WINDOWS_QT:-} && ! -e $made && -e ${archive[0]} ]]; then
        echo "Unpacking ${archive[0]}"
        mkdir -p "$made.part"
        tar -xJf "${archive[0]}" -C "$made.part" --strip-components=1
        mv "$made.part" "$made"
    fi
    export RANKELO_WINDOWS_QT=${RANKELO_WINDOWS_QT:-$PWD/$made}
    [[ -e $RANKELO_WINDOWS_QT/lib/cmake/Qt6/Qt6Config.cmake ]]
}

# prepare_wine: a Windows for packaging/windows/in-wine, with typefaces that are here.
prepare_wine() {
    local wine=packaging/windows/in-wine face stand_in
    "$wine" wineboot --init
    WINEPREFIX=$PWD/build/windows/wine /usr/lib/wine/wineserver64 --wait
    while IFS== read -r face stand_in; do
        "$wine" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$face" /d "$stand_in" /f \
            </dev/null >/dev/null
    done <<'FACES'
Arial=Liberation Sans
Courier New=Liberation Mono
MS Shell Dlg 2=Liberation Sans
Segoe UI=Liberation Sans
Tahoma=Liberation Sans
FACES
}

# at_rest: waits until two looks at the display show the same, for two seconds at most.
at_rest() {
    local before now= i
    for ((i = 0; i < 20; ++i)); do
        before=$now
        now=$(import -silent -window root rgb:- | cksum)
        [[ $now != "$before" ]] || return 0
        sleep 0.1
    done
}
