#!/bin/sh
# Installs the Debian packages that building, playing, testing and installing
# Gorvan need (the last line: checks of the desktop entry, the AppStream file
# and the manual page).
# Only what is missing is installed; as root through apt-get, otherwise through sudo.
#   install-deps.sh [MORE PACKAGES...]   (tools/windows/install-deps.sh adds its own)
set -e

PACKAGES="build-essential cmake pkg-config
libglfw3-dev libglew-dev libgl1-mesa-dev libgl1-mesa-dri libx11-dev
libopenal-dev libopenal1 libvorbis-dev libogg-dev
libpng-dev libfreetype-dev fonts-dejavu-core librsvg2-bin
libgtest-dev libgmock-dev libbenchmark-dev
xvfb xauth x11-utils xdotool
desktop-file-utils appstream man-db
$*"

missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done

if [ -z "$missing" ]; then
    echo "All needed packages are installed."
    exit 0
fi

echo "Installing:$missing"
if [ "$(id -u)" = 0 ]; then SUDO=""; else SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends $missing
