#!/bin/sh
# The install as a package build makes it: into a scratch DESTDIR, with its
# desktop entry, AppStream file and manual page checked; the installed
# launcher's help, version and answer to a bad option; one start by a player
# with a fresh home (the window closed by the player), after which the
# player's folder holds the settings, without the one-run window size; and
# the uninstall by the manifest.
#
#   sh install.sh RUN_DIR BUILD_DIR
#
# Needs an X server (DISPLAY), as under `xvfb-run ctest`, xdotool,
# desktop-file-validate and appstreamcli.
set -u

[ $# -eq 2 ] || { echo "usage: sh install.sh RUN_DIR BUILD_DIR" >&2; exit 2; }
BUILD_DIR=$(cd "$2" 2>/dev/null && pwd) || { echo "FAIL: no folder $2" >&2; exit 1; }
SCRATCH=$(mktemp -d) || exit 1
DEST=$SCRATCH/dest/usr
MANIFEST=$BUILD_DIR/install_manifest.txt
LOG=$SCRATCH/log

# The developer's own manifest comes back afterwards.
[ -f "$MANIFEST" ] && cp "$MANIFEST" "$SCRATCH/manifest"
cleanup() {
    [ -n "${GAME_PID:-}" ] && kill -KILL "$GAME_PID" 2>/dev/null
    if [ -f "$SCRATCH/manifest" ]; then cp "$SCRATCH/manifest" "$MANIFEST"; else rm -f "$MANIFEST"; fi
    rm -rf "$SCRATCH"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; [ -f "$LOG" ] && cat "$LOG" >&2; exit 1; }

DESTDIR=$SCRATCH/dest cmake --install "$BUILD_DIR" --prefix /usr >/dev/null || fail "cmake --install"
for file in bin/gorvan lib/gorvan/gorvan share/gorvan/content/images.sfa share/gorvan/content/maps/map20.txt \
    share/icons/hicolor/scalable/apps/net.kelvarin.gorvan.svg; do
    [ -f "$DEST/$file" ] || fail "not installed: $file"
done
for size in 16 24 32 48 64 128 256 512; do
    [ -f "$DEST/share/icons/hicolor/${size}x$size/apps/net.kelvarin.gorvan.png" ] || fail "no $size pixel icon"
done
desktop-file-validate "$DEST/share/applications/net.kelvarin.gorvan.desktop" || fail "desktop entry"
grep -q '^Categories=Game;ArcadeGame;$' "$DEST/share/applications/net.kelvarin.gorvan.desktop" || fail "categories"
appstreamcli validate --no-net "$DEST/share/metainfo/net.kelvarin.gorvan.metainfo.xml" >"$LOG" || fail "AppStream file"
MANPATH=$DEST/share/man man 6 gorvan 2>/dev/null | grep -q -e '--data-dir' || fail "man 6 gorvan"

HOME=$SCRATCH/home
export HOME
unset XDG_DATA_HOME
PLAYER=$HOME/.local/share/gorvan
"$DEST/bin/gorvan" --help >"$LOG" 2>&1 || fail "--help exits with $?"
grep -q -e '--resolution WxH' "$LOG" && grep -q 'X A B Y' "$LOG" || fail "--help without the options and keys"
"$DEST/bin/gorvan" --version | grep -q -x 'gorvan [0-9]*\.[0-9]*\.[0-9]*' || fail "--version"
"$DEST/bin/gorvan" --resolution 800 >"$LOG" 2>"$SCRATCH/err" && fail "a bad value is accepted"
[ $? -eq 2 ] && [ ! -s "$LOG" ] && [ "$(wc -l <"$SCRATCH/err")" -eq 1 ] || fail "a bad value: exit 2 and one line"
[ -e "$PLAYER" ] && fail "a bad option made the player's folder"

# One start, in a window of a size that only this run asks for.
"$DEST/bin/gorvan" --windowed --resolution 1024x768 --mute >"$LOG" 2>&1 &
GAME_PID=$!
waited=0
until window=$(xdotool search --name '^Gorvan$' 2>/dev/null | head -n 1) && [ -n "$window" ]; do
    kill -0 "$GAME_PID" 2>/dev/null || fail "the game ended before its window appeared"
    waited=$((waited + 1))
    [ "$waited" -lt 300 ] || fail "no window after 60 s"
    sleep 0.2
done
xdotool windowfocus "$window" 2>/dev/null
xdotool getwindowgeometry "$window" | grep -q 'Geometry: 1024x768' || fail "the window is not 1024 x 768"
"$BUILD_DIR/x11_close_window" Gorvan 5 || fail "could not ask the window to close"
waited=0
while kill -0 "$GAME_PID" 2>/dev/null; do
    waited=$((waited + 1))
    [ "$waited" -lt 300 ] || fail "the game did not exit within 60 s of the close"
    sleep 0.2
done
wait "$GAME_PID" || fail "exit code $?"
GAME_PID=""

[ "$(od -An -tu1 "$PLAYER/content/settings.dat" | tr -s ' ')" = " 0 0 0 0 0 0 60 100" ] \
    || fail "the settings file is not the defaults"
[ "$(readlink "$PLAYER/content/images.sfa")" = "$DEST/share/gorvan/content/images.sfa" ] \
    || fail "the content is not linked from the install"
[ -d "$PLAYER/screenshots" ] || fail "no screenshots folder"

DESTDIR=$SCRATCH/dest cmake --build "$BUILD_DIR" --target uninstall >/dev/null || fail "uninstall"
left=$(find "$SCRATCH/dest" -type f -o -type l)
[ -z "$left" ] || fail "left after the uninstall: $left"
[ -e "$DEST/share/gorvan" ] || [ -e "$DEST/lib/gorvan" ] && fail "the game's folders are left"
echo "PASS"
