#!/usr/bin/env bash
# Installs the Debian packages that the build and the tests need. Asks for nothing; does nothing when all is there.
set -euo pipefail

packages=(
    g++ cmake ninja-build ccache
    clang clang-format clang-tidy libclang-rt-dev llvm cppcheck valgrind
    libgtest-dev libgmock-dev libbenchmark-dev
    libcli11-dev nlohmann-json3-dev
    pkg-config qt6-base-dev qt6-svg-dev libxcb1-dev
    dbus-bin dbus-daemon
    linuxcnc-uspace
    xvfb openbox xdotool x11-utils imagemagick jq fonts-dejavu-core fonts-noto-cjk
    dpkg-dev file patchelf librsvg2-bin qmake6 lintian appstream desktop-file-utils man-db mmdebstrap uidmap
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -q '^installed$'; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "setup.sh: needs root or sudo to install: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
