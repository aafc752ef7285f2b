#!/bin/sh
# The two ends of the campaign, played by the headless runner on seed 1: a new
# player who only builds cannons wins map 1 and loses map 20; the smart policy,
# which plays the upgrade economy, wins map 20 (docs/balance.md has the table).
#   sh campaign_ends.sh RUN_DIR BUILD_DIR    (under an X server)
set -u
RUNNER=$2/tools/headless_runner
SCRATCH=$(mktemp -d) || exit 1
trap 'rm -rf "$SCRATCH"' EXIT
cp -rs "$(realpath "$1")/content" "$SCRATCH/" && rm -f "$SCRATCH/content/scores.dat" || exit 1
status=0
for game in "1 cannons 1" "20 cannons 3" "20 smart 1"; do  # map, policy, end state
    set -- $game
    got=$("$RUNNER" --run-dir "$SCRATCH" --map "$1" --policy "$2" --seed 1 2>/dev/null |
        sed -n 's/.* endState \([0-9]*\).*/\1/p')
    if [ "$got" = "$3" ]; then echo "map $1, $2: endState $got"
    else echo "FAIL: map $1, $2: endState '$got', expected $3" >&2; status=1; fi
done
exit $status
