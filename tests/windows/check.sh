#!/bin/sh
# make check-windows: the Windows build (make windows) under Wine, on the X
# server this runs under (the Makefile starts Xvfb).
#   1. the Windows builds of the rule and file-format test programs pass;
#   2. gorvan.exe boots to the menu (window, boot log), hands the credits' web
#      address to the desktop, ENTER on "1 player game" and on the first map
#      starts a game, closing the window exits 0 (the same steps with the
#      Linux build, to compare their files);
#   3. the Linux and the Windows build write the same settings and fps files,
#      and play the same scripted headless games to the same outcome and score file.
#   check.sh [LINUX_BUILD_FOLDER]   (default: build)
set -u
ROOT=$(cd "$(dirname "$0")/../.." && pwd)
LINUX=$(cd "$ROOT/${1:-build}" && pwd) || exit 1
WIN=$ROOT/build-windows
export WINEPREFIX=$WIN/wineprefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
export ALSOFT_DRIVERS=null  # no sound card here: OpenAL's silent device
SCRATCH=$(mktemp -d) || exit 1
trap 'wineserver -k 2>/dev/null; rm -rf "$SCRATCH"' EXIT
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }
[ -d "$WINEPREFIX" ] || wine wineboot --init >/dev/null 2>&1

for program in test_rules test_data; do
    if (cd "$WIN/build/tests" && wine "./$program.exe") >"$SCRATCH/$program.log" 2>&1; then
        echo "$program.exe: $(sed -n 's/^\[  PASSED  \] //p' "$SCRATCH/$program.log")"
    else
        cat "$SCRATCH/$program.log" >&2
        fail "$program.exe"
    fi
done

# The system's own calls: the error box, the web opener, saving over a file.
imports=$(x86_64-w64-mingw32-objdump -p "$WIN/gorvan-windows/gorvan.exe")
for call in MessageBoxA ShellExecuteA MoveFileExA; do
    echo "$imports" | grep -qw "$call" || fail "gorvan.exe does not call $call"
done

# The mean brightness of a 24-bit BMP's pixels, 0 to 255: the menus are
# dark, the play field and its panels are not.
brightness() {
    tail -c +55 "$1" | od -An -v -tu1 | awk '{ for (i = 1; i <= NF; i++) s += $i; n += NF } END { print int(s / n) }'
}

# press WINDOW KEY: held for a few frames, since the game looks at its keys
# once a frame; sent on its own, since chained to the window xdotool would send
# a synthetic event, which the game's window ignores.
press() {
    xdotool windowfocus "$1" 2>/dev/null
    xdotool keydown "$2"
    sleep 0.3
    xdotool keyup "$2"
    sleep 1
}

# play NAME COMMAND...: the game from a fresh copy of its folder in $SCRATCH/NAME.
play() {
    name=$1
    shift
    # The desktop's opener, which Wine's opener calls too, only notes the address.
    printf '#!/bin/sh\necho "$@" >>"%s"\n' "$SCRATCH/$name/opened.txt" >"$SCRATCH/bin/xdg-open"
    chmod +x "$SCRATCH/bin/xdg-open"
    (cd "$SCRATCH/$name" && PATH=$SCRATCH/bin:$PATH exec "$@" >boot.log 2>errors.log) &
    game=$!
    window=""
    for i in $(seq 600); do  # two minutes at most: Wine's first start is slow
        window=$(xdotool search --name '^Gorvan$' 2>/dev/null | head -n 1)
        [ -n "$window" ] && break
        kill -0 $game 2>/dev/null || break
        sleep 0.2
    done
    [ -n "$window" ] || { fail "$name: no window titled Gorvan"; cat "$SCRATCH/$name/errors.log" >&2; return; }
    for i in $(seq 600); do  # the boot log is written when the start-up ends
        grep -q "^This is the stuff you see" "$SCRATCH/$name/boot.log" 2>/dev/null && break
        sleep 0.2
    done
    # The mouse out of the way, since the menus select what it points at; F12
    # until the menu's picture is taken, which shows the menu's loop running.
    xdotool mousemove 0 0
    for i in $(seq 60); do
        press "$window" F12
        [ -f "$SCRATCH/$name/screenshots/0000.bmp" ] && break
    done
    # Credits and its web address, back, "1 player game", a picture of the
    # level page once its transition is over, the first map, a picture of the game.
    for key in Down Down Down Down Down Return Return Escape Return; do
        press "$window" $key
    done
    sleep 2
    press "$window" F12
    press "$window" Return
    sleep 4
    press "$window" F12
    sleep 3
    "$LINUX/x11_close_window" Gorvan 10 || fail "$name: could not ask the window to close"
    wait $game || fail "$name: exit code $?, expected 0"
    grep -q "^This is the stuff you see when the program starts:" "$SCRATCH/$name/boot.log" ||
        fail "$name: no boot log"
    [ "$(cat "$SCRATCH/$name/opened.txt" 2>/dev/null)" = "https://www.kelvarin.net/" ] ||
        fail "$name: the credits' web address was not handed to the desktop"
    shots=$SCRATCH/$name/screenshots
    [ -f "$shots/0001.bmp" ] && [ -f "$shots/0002.bmp" ] || { fail "$name: no screenshots"; return; }
    menu=$(brightness "$shots/0001.bmp") play=$(brightness "$shots/0002.bmp")
    echo "$name: window seen, boot log written, web address opened, level page brightness $menu, game $play, exit code 0"
    [ "$menu" -lt 40 ] && [ "$play" -gt 80 ] || fail "$name: ENTER, ENTER did not start a game"
}
mkdir "$SCRATCH/windows" "$SCRATCH/linux" "$SCRATCH/bin"
cp -r "$WIN/gorvan-windows/." "$SCRATCH/windows/"
cp -r "$LINUX/run/content" "$SCRATCH/linux/" && mkdir "$SCRATCH/linux/screenshots"
play windows wine ./gorvan.exe
play linux "$LINUX/run/gorvan"
for file in settings.dat fps.dat; do
    cmp "$SCRATCH/linux/content/$file" "$SCRATCH/windows/content/$file" && echo "$file: the same bytes" ||
        fail "$file differs between the builds"
done

# The same scripted headless games on both builds: every mode on one map, one
# seed, the smart policy and a few keys of the script's own.
for build in linux windows; do
    mkdir "$SCRATCH/runner-$build" && cp -r "$LINUX/run/content" "$SCRATCH/runner-$build/"
    rm -f "$SCRATCH/runner-$build/content/"*.dat
    printf '400 1 down\n401 1 up\n900 3 down\n901 3 up\n3000 s down\n3002 s up\n' >"$SCRATCH/runner-$build/keys.txt"
done
game="--map 5 --mode all --policy smart --seed 7 --max-rounds 20000 --script keys.txt"
(cd "$SCRATCH/runner-linux" && "$LINUX/tools/headless_runner" $game) >"$SCRATCH/runner-linux.txt"
(cd "$SCRATCH/runner-windows" && wine "$WIN/build/tools/headless_runner.exe" $game) |
    tr -d '\r' >"$SCRATCH/runner-windows.txt"
if cmp -s "$SCRATCH/runner-linux.txt" "$SCRATCH/runner-windows.txt" &&
    cmp "$SCRATCH/runner-linux/content/scores.dat" "$SCRATCH/runner-windows/content/scores.dat"; then
    echo "headless games: the same outcome and scores.dat ($(grep -c score "$SCRATCH/runner-linux.txt") sides)"
else
    diff "$SCRATCH/runner-linux.txt" "$SCRATCH/runner-windows.txt" >&2
    fail "the headless games differ between the builds"
fi

[ $failures = 0 ] && echo "check-windows: PASS" || echo "check-windows: $failures FAILED"
[ $failures = 0 ]
