#!/bin/sh
# The two ends of the campaign, played by the headless runner on seed 1: a new
# player who only builds cannons wins map 1 and loses map 20; the smart
# policy, which plays the upgrade economy, wins map 20. docs/balance.md has
# the whole table (tools/balance_report.sh).
#
#   sh campaign_ends.sh RUN_DIR BUILD_DIR
#
# Needs an X server (DISPLAY), as under `xvfb-run ctest`, or xvfb-run.
set -u

[ $# -eq 2 ] || { echo "usage: sh campaign_ends.sh RUN_DIR BUILD_DIR" >&2; exit 2; }
RUN_DIR=$(cd "$1" 2>/dev/null && pwd) || { echo "FAIL: no folder $1" >&2; exit 1; }
RUNNER=$2/tools/headless_runner
[ -x "$RUNNER" ] || { echo "FAIL: no $RUNNER (build the headless_runner target)" >&2; exit 1; }

SCRATCH=$(mktemp -d)
trap 'rm -rf "$SCRATCH"' EXIT
mkdir -p "$SCRATCH/content"
for entry in "$RUN_DIR"/content/*; do
    [ "$(basename "$entry")" = scores.dat ] || ln -s "$entry" "$SCRATCH/content/"
done

# Prints the endState of one stage game: 1 won, 3 lost.
endState() {
    if [ -n "${DISPLAY:-}" ]; then
        "$RUNNER" --run-dir "$SCRATCH" --map "$1" --policy "$2" --seed 1 2>/dev/null
    else
        xvfb-run -a "$RUNNER" --run-dir "$SCRATCH" --map "$1" --policy "$2" --seed 1 2>/dev/null
    fi | sed -n 's/.* endState \([0-9]*\).*/\1/p'
}

status=0
expect() {
    got=$(endState "$1" "$2")
    if [ "$got" = "$3" ]; then
        echo "map $1, $2: endState $got"
    else
        echo "FAIL: map $1, $2: endState '$got', expected $3" >&2
        status=1
    fi
}

expect 1 cannons 1
expect 20 cannons 3
expect 20 smart 1
exit $status
