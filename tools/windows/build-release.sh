#!/bin/sh
# make windows: builds the Windows release of the game in build-windows/.
#   1. installs what is missing (tools/windows/install-deps.sh);
#   2. makes the content with the Linux build's tools (it is the same on Windows);
#   3. cross-builds the libraries once (tools/windows/build-libraries.sh);
#   4. cross-compiles the game, the headless runner and the Windows tests;
#   5. assembles build-windows/gorvan-windows/ and gorvan-windows.zip.
#   build-release.sh [LINUX_BUILD_FOLDER]   (default: build)
set -e
ROOT=$(cd "$(dirname "$0")/../.." && pwd)
LINUX=$(cd "$ROOT" && mkdir -p "${1:-build}" && cd "${1:-build}" && pwd)
WIN=$ROOT/build-windows
BUILD=$WIN/build
RELEASE=$WIN/gorvan-windows
JOBS=${JOBS:-$(nproc)}
cd "$ROOT"

tools/windows/install-deps.sh
[ -f "$LINUX/CMakeCache.txt" ] || cmake -S . -B "$LINUX" -DCMAKE_BUILD_TYPE=RelWithDebInfo
nice cmake --build "$LINUX" -j "$JOBS" --target content headless_runner x11_close_window
JOBS=$JOBS tools/windows/build-libraries.sh "$WIN"

cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_TOOLCHAIN_FILE="$ROOT/tools/windows/mingw-toolchain.cmake" \
    -DGORVAN_WINDOWS_PREFIX="$WIN/prefix" -DGORVAN_LINUX_RUN_DIR="$LINUX/run"
nice cmake --build "$BUILD" -j "$JOBS"

# The release: the program, the one DLL, the content, an empty screenshots\,
# the README with keys and licences, and the licence texts.
rm -rf "$RELEASE" "$RELEASE.zip"
mkdir -p "$RELEASE/screenshots" "$RELEASE/licences"
x86_64-w64-mingw32-strip -o "$RELEASE/gorvan.exe" "$BUILD/run/gorvan.exe"
x86_64-w64-mingw32-strip -o "$RELEASE/OpenAL32.dll" "$BUILD/run/OpenAL32.dll"
cp -r "$BUILD/run/content" "$RELEASE/"
rm -f "$RELEASE/content/scores.dat" "$RELEASE/content/settings.dat" "$RELEASE/content/fps.dat"
version=$(sed -n 's/^project(Gorvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
sed "s/@VERSION@/$version/" tools/windows/README.txt | sed 's/$/\r/' >"$RELEASE/README.txt"
for package in "$WIN"/prefix/licences/*; do
    name=$(basename "$package")
    [ "$name" = googletest ] && continue  # only in the tests
    for file in "$package"/*; do
        base=$(basename "$file")
        cp "$file" "$RELEASE/licences/$name-${base%.*}.txt"
    done
done
cp /usr/share/doc/mingw-w64-common/copyright "$RELEASE/licences/mingw-w64-runtime.txt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$RELEASE/licences/gcc-runtime.txt"
cp /usr/share/doc/fonts-dejavu-core/copyright "$RELEASE/licences/dejavu-fonts.txt"
(cd "$WIN" && zip -q -r -X gorvan-windows.zip gorvan-windows)
echo "Windows release: $RELEASE and $RELEASE.zip"
