# Shared by the commands in the root: packages, builds, the company's folder. Sourced, never run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '%s\n' "$*"; }

# One package a line; everything the build, the program and the tests need on a fresh machine.
packages="g++ cmake ninja-build ccache pkg-config
qt6-base-dev qt6-base-dev-tools qt6-svg-dev libqt6svg6 qt6-translations-l10n
libsqlcipher-dev libgsf-1-dev libfreexl-dev libicu-dev libharfbuzz-dev libfontconfig-dev libgtest-dev libx11-dev libxtst-dev fonts-noto-cjk"

# What the display tests start: a display without hardware, a window manager, an input method on a session bus.
display_packages="xvfb openbox dbus fcitx5 fcitx5-chinese-addons fcitx5-frontend-qt6"

install_packages() { # further packages as arguments
    local missing=() package
    for package in $packages "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing: ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then root=(sudo); fi
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build() { # preset, then targets (none: all)
    local preset=$1
    shift
    # The configuration is made anew only when it is missing; the build notices changes to it by itself.
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    if [ $# -eq 0 ]; then
        cmake --build "build/$preset"
    else
        cmake --build "build/$preset" --target "$@"
    fi
}

# Program and data files in a folder of their own. Data that are there are never touched.
install_company() { # preset, folder
    mkdir -p "$2"
    # A new file takes the old one's place, so that a program that is running keeps its own.
    cp "build/$1/bin/korvane" "$2/korvane.new"
    mv -f "$2/korvane.new" "$2/korvane"
    "build/$1/bin/make-data-files" "$2"
}
