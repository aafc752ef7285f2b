#!/bin/sh
# The player closes the game's window: the game must notice, shut down and
# exit with code 0, having logged what its window turned out to be.
#
#   sh window_close.sh RUN_DIR BUILD_DIR
#
# Needs an X server (DISPLAY), as under `xvfb-run ctest`, and xdotool.
set -u

[ $# -eq 2 ] || { echo "usage: sh window_close.sh RUN_DIR BUILD_DIR" >&2; exit 2; }
# Absolute, since the game runs from its own folder.
RUN_DIR=$(cd "$1" 2>/dev/null && pwd) || { echo "FAIL: no folder $1" >&2; exit 1; }
BUILD_DIR=$(cd "$2" 2>/dev/null && pwd) || { echo "FAIL: no folder $2" >&2; exit 1; }
WINDOW_WAIT=60   # seconds for the window to appear
EXIT_WAIT=60     # seconds for the game to exit once asked to close

fail() {
    echo "FAIL: $*" >&2
    if [ -n "${LOG:-}" ] && [ -f "$LOG" ]; then
        echo "---- game log ----" >&2
        cat "$LOG" >&2
        echo "------------------" >&2
    fi
    exit 1
}

game_running() {
    kill -0 "$GAME_PID" 2>/dev/null
}

# Ends the game if it is still there: politely, then for good.
stop_game() {
    if [ -n "${GAME_PID:-}" ] && game_running; then
        kill -TERM "$GAME_PID" 2>/dev/null
        sleep 2
        kill -KILL "$GAME_PID" 2>/dev/null
    fi
}

cleanup() {
    stop_game
    [ -n "${LOG:-}" ] && rm -f "$LOG"
}
trap cleanup EXIT
trap 'exit 1' INT TERM

[ -n "${DISPLAY:-}" ] || fail "no X display (run under xvfb-run)"
[ -x "$RUN_DIR/gorvan" ] || fail "no game at $RUN_DIR/gorvan"
[ -x "$BUILD_DIR/x11_close_window" ] || fail "no helper at $BUILD_DIR/x11_close_window"
command -v xdotool >/dev/null 2>&1 || fail "xdotool is not installed"

LOG=$(mktemp "${TMPDIR:-/tmp}/gorvan-window-close.XXXXXX") || fail "no temporary log file"

cd "$RUN_DIR" || fail "cannot enter $RUN_DIR"
./gorvan >"$LOG" 2>&1 &
GAME_PID=$!

# The window, once the game has named it.
waited=0
window=""
while [ -z "$window" ]; do
    game_running || fail "the game ended before its window appeared"
    [ "$waited" -lt $((WINDOW_WAIT * 5)) ] || fail "no window titled Gorvan after $WINDOW_WAIT s"
    window=$(xdotool search --name '^Gorvan$' 2>/dev/null | head -n 1)
    [ -n "$window" ] || { sleep 0.2; waited=$((waited + 1)); }
done
echo "window $window after about $((waited / 5)) s"

# Keep it focused, as a player's window would be (losing focus pauses a game).
xdotool windowfocus "$window" 2>/dev/null

"$BUILD_DIR/x11_close_window" Gorvan 5 || fail "could not ask the window to close"

waited=0
while game_running; do
    if [ "$waited" -ge $((EXIT_WAIT * 5)) ]; then
        stop_game
        fail "the game did not exit within $EXIT_WAIT s of the close"
    fi
    sleep 0.2
    waited=$((waited + 1))
done
wait "$GAME_PID"
status=$?
GAME_PID=""
echo "exited with $status after about $((waited / 5)) s"

[ "$status" -eq 0 ] || fail "exit code $status, expected 0"

grep -q -e "^Hardware accelerated window succesfully opened!$" \
        -e "^Couldn't get hardware acceleration!$" "$LOG" \
    || fail "no line about hardware acceleration"
for line in "Color bits: " "Stencil bits: " "Multisampling: "; do
    grep -q "^$line" "$LOG" || fail "no line starting \"$line\""
done
echo "PASS"
exit 0
