#!/bin/sh
# Installs what the Windows build needs on Debian 12, beyond the Linux build's
# packages (tools/install-deps.sh, whose content tools make the content):
# the MinGW-w64 cross compiler with POSIX threads, Wine to test under, zip for
# the release, and dpkg-dev for `apt-get source`. Adds deb-src entries signed
# by the archive's key, so that the libraries come from their Debian source
# packages.
# Only what is missing is installed; as root through apt-get, otherwise through sudo.
set -e

PACKAGES="g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix
wine wine64 zip unzip dpkg-dev xvfb xauth xdotool x11-utils"
SOURCES_ENTRY=/etc/apt/sources.list.d/gorvan-deb-src.sources

if [ "$(id -u)" = 0 ]; then SUDO=""; else SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
updated=""

# Debian 12's sources, and Debian 13's for OpenAL Soft (build-libraries.sh).
if [ ! -f "$SOURCES_ENTRY" ]; then
    echo "Adding the Debian source packages ($SOURCES_ENTRY)"
    printf '%s\n' "Types: deb-src" "URIs: http://deb.debian.org/debian" \
        "Suites: bookworm bookworm-updates trixie" "Components: main" \
        "Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg" | $SUDO tee "$SOURCES_ENTRY" >/dev/null
    $SUDO apt-get update -qq
    updated=yes
fi

missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
if [ -z "$missing" ]; then
    echo "All packages of the Windows build are installed."
    exit 0
fi
echo "Installing:$missing"
[ -n "$updated" ] || $SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends $missing
