#!/bin/sh
# Installs what the Windows build needs on Debian 12: the Linux build's
# packages (its content tools make the content) and the MinGW-w64 cross
# compiler with POSIX threads, Wine to test under, zip for the release and
# dpkg-dev for `apt-get source`. Adds deb-src entries signed by the archive's
# key, so that the libraries come from their Debian source packages.
set -e
SOURCES_ENTRY=/etc/apt/sources.list.d/gorvan-deb-src.sources

# Debian 12's sources, and Debian 13's for OpenAL Soft (build-libraries.sh).
if [ ! -f "$SOURCES_ENTRY" ]; then
    if [ "$(id -u)" = 0 ]; then SUDO=""; else SUDO="sudo"; fi
    echo "Adding the Debian source packages ($SOURCES_ENTRY)"
    printf '%s\n' "Types: deb-src" "URIs: http://deb.debian.org/debian" \
        "Suites: bookworm bookworm-updates trixie" "Components: main" \
        "Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg" | $SUDO tee "$SOURCES_ENTRY" >/dev/null
    $SUDO apt-get update -qq
fi

exec "$(dirname "$0")/../install-deps.sh" g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix \
    wine wine64 zip dpkg-dev
