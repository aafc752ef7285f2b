#!/bin/sh
# The player closes the game's window: the game must notice, shut down and
# exit with code 0, having logged what its window turned out to be.
#   sh window_close.sh RUN_DIR BUILD_DIR    (under an X server, with xdotool)
set -u
RUN_DIR=$(cd "$1" && pwd) && BUILD_DIR=$(cd "$2" && pwd) || exit 1
LOG=$(mktemp) || exit 1
trap 'kill -KILL "$GAME" 2>/dev/null; rm -f "$LOG"' EXIT
fail() { echo "FAIL: $*" >&2; cat "$LOG" >&2; exit 1; }
running() { kill -0 "$GAME" 2>/dev/null; }

(cd "$RUN_DIR" && exec ./gorvan >"$LOG" 2>&1) &
GAME=$!
for i in $(seq 300); do  # a minute at most
    WINDOW=$(xdotool search --name '^Gorvan$' 2>/dev/null | head -n 1)
    [ -n "$WINDOW" ] && break
    running || fail "the game ended before its window appeared"
    sleep 0.2
done
[ -n "$WINDOW" ] || fail "no window titled Gorvan"
xdotool windowfocus "$WINDOW" 2>/dev/null  # a window without focus pauses a game
"$BUILD_DIR/x11_close_window" Gorvan 5 || fail "could not ask the window to close"
for i in $(seq 300); do running && sleep 0.2; done
running && fail "the game did not exit within a minute of the close"
wait "$GAME" || fail "exit code $?, expected 0"
grep -q -e "^Hardware accelerated window succesfully opened!$" \
    -e "^Couldn't get hardware acceleration!$" "$LOG" || fail "no line about acceleration"
for line in "Color bits: " "Stencil bits: " "Multisampling: "; do
    grep -q "^$line" "$LOG" || fail "no line starting \"$line\""
done
echo PASS
