#!/bin/sh
# Cross-builds the libraries of the Windows build from their Debian source
# packages (apt-get source; tools/windows/install-deps.sh adds the deb-src
# entry) and installs them into build-windows/prefix. Each is built once: a
# library with its stamp in prefix/built/ is left alone.
#   build-libraries.sh [WINDOWS_BUILD_FOLDER]
set -e
ROOT=$(cd "$(dirname "$0")/../.." && pwd)
WIN=$(mkdir -p "${1:-$ROOT/build-windows}" && cd "${1:-$ROOT/build-windows}" && pwd)
PREFIX=$WIN/prefix
JOBS=${JOBS:-2}
mkdir -p "$WIN/sources" "$PREFIX/built"

# build PACKAGE VERSION [CMAKE OPTIONS...]: fetch, unpack, configure, install.
build() {
    package=$1 version=$2
    shift 2
    [ -f "$PREFIX/built/$package-$version" ] && return 0
    echo "== $package $version"
    upstream=${version#*:}
    upstream=${upstream%-*}
    source=$WIN/src/$package
    rm -rf "$source" "$WIN/lib-build/$package"
    mkdir -p "$WIN/src"
    # apt checks every file against the signed index. Where the mirror lacks
    # the Debian packaging files but gave the upstream tarball, that is built
    # as it stands (the patches only concern Debian's own packaging).
    if (cd "$WIN/sources" && apt-get source --download-only "$package=$version"); then
        (cd "$WIN/sources" && dpkg-source -x ${package}_${version#*:}.dsc "$source")
    else
        orig=$(ls "$WIN/sources/${package}_$upstream.orig.tar."*)
        mkdir -p "$source" && tar -xf "$orig" -C "$source" --strip-components=1
    fi
    sourceDir=$source
    [ "$package" = glew ] && sourceDir=$source/build/cmake
    nice cmake -S "$sourceDir" -B "$WIN/lib-build/$package" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$ROOT/tools/windows/mingw-toolchain.cmake" \
        -DGORVAN_WINDOWS_PREFIX="$PREFIX" -DCMAKE_INSTALL_PREFIX="$PREFIX" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_POLICY_DEFAULT_CMP0077=NEW "$@"
    nice cmake --build "$WIN/lib-build/$package" -j "$JOBS"
    cmake --install "$WIN/lib-build/$package"
    mkdir -p "$PREFIX/licences/$package"
    for f in COPYING LICENSE LICENSE.txt LICENSE.md COPYING.md; do
        [ -f "$source/$f" ] && cp "$source/$f" "$PREFIX/licences/$package/"
    done
    touch "$PREFIX/built/$package-$version"
}

# Static but for OpenAL Soft, which stays a DLL as its licence (LGPL) wants.
build glfw3 3.3.8-1 -DBUILD_SHARED_LIBS=OFF -DGLFW_BUILD_EXAMPLES=OFF \
    -DGLFW_BUILD_TESTS=OFF -DGLFW_BUILD_DOCS=OFF
build glew 2.2.0-4 -DBUILD_UTILS=OFF
build libogg 1.3.5-3 -DBUILD_SHARED_LIBS=OFF -DINSTALL_DOCS=OFF -DBUILD_TESTING=OFF
build libvorbis 1.3.7-1 -DBUILD_SHARED_LIBS=OFF
# GoogleTest for the Windows builds of the tests.
build googletest 1.12.1-0.2 -DBUILD_GMOCK=OFF -Dgtest_disable_pthreads=OFF -DINSTALL_GTEST=ON
# OpenAL Soft comes from Debian 13's source package: the archive here no
# longer serves the upstream tarball of Debian 12's (1.19.1).
build openal-soft 1:1.24.2-1 -DLIBTYPE=SHARED -DALSOFT_UTILS=OFF -DALSOFT_EXAMPLES=OFF \
    -DALSOFT_TESTS=OFF -DALSOFT_INSTALL_CONFIG=OFF -DALSOFT_INSTALL_HRTF_DATA=OFF \
    -DALSOFT_INSTALL_AMBDEC_PRESETS=OFF -DALSOFT_INSTALL_EXAMPLES=OFF -DALSOFT_INSTALL_UTILS=OFF
echo "Windows libraries are in $PREFIX"
