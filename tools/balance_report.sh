#!/bin/bash
# Plays every map of the campaign in the headless runner with several
# policies and seeds and writes a Markdown table of how the games went, for
# balancing the maps (difficulty, par scores, unlock points).
#
#   tools/balance_report.sh [BUILD_DIR] [OUTPUT]
#
#   BUILD_DIR  the build folder; it must hold tools/headless_runner and the
#              built run/content (cmake --build BUILD_DIR --target
#              headless_runner content). Default: build.
#   OUTPUT     the Markdown file to write. Default: docs/balance.md.
#
# Environment:
#   SEEDS     the seeds of each map and policy (default "1 2 3")
#   POLICIES  the policies (default "idle cannons simple smart"; see
#             tools/runner_policies.h for what each one does)
#   JOBS      games played at once (default 2)
#
# Only stage games ("1 player game") are played: they are what par and unlock
# points are about. The maps are read from BUILD_DIR/run/content/maps, so
# rebuild the content target after editing assets/maps/. Each game runs in a
# scratch folder of its own, so the build's scores stay as they are. The
# runner needs no X server.
set -eu

# Plays one game in a folder of its own and prints one line:
# map policy seed rounds endState score (rounds 0 and endState - on failure).
# The script calls itself as `balance_report.sh --game MAP POLICY SEED` for
# each game, with runner, scratch and content in the environment.
playGame() {
    local map=$1 policy=$2 seed=$3
    local dir="$scratch/game-$map-$policy-$seed"
    mkdir -p "$dir/content"
    for entry in "$content"/*; do
        [ "$(basename "$entry")" = scores.dat ] || ln -s "$entry" "$dir/content/"
    done
    local out
    out=$("$runner" --run-dir "$dir" --map "$map" --policy "$policy" --seed "$seed" 2>"$dir/err") ||
        true
    local rounds end score
    rounds=$(echo "$out" | sed -n 's/.* after \([0-9]*\) rounds.*/\1/p')
    end=$(echo "$out" | sed -n 's/.* score [0-9]* endState \([0-9]*\).*/\1/p')
    score=$(echo "$out" | sed -n 's/.* score \([0-9]*\) endState.*/\1/p')
    if [ -z "$rounds" ] || [ -z "$end" ]; then
        echo "balance_report: map $map, $policy, seed $seed gave no result: $(tail -n 1 "$dir/err")" >&2
        echo "$map $policy $seed 0 - 0"
    else
        echo "$map $policy $seed $rounds $end $score"
    fi
    rm -rf "$dir"
}
if [ "${1:-}" = --game ]; then
    playGame "$2" "$3" "$4"
    exit 0
fi

build=${1:-build}
output=${2:-docs/balance.md}
seeds=${SEEDS:-"1 2 3"}
policies=${POLICIES:-"idle cannons simple smart"}
jobs=${JOBS:-2}

fail() {
    echo "balance_report: $*" >&2
    exit 1
}

[ -d "$build" ] || fail "no build folder '$build'; configure and build it first:
  cmake -S . -B $build -DCMAKE_BUILD_TYPE=Release
  cmake --build $build -j2 --target headless_runner content"
[ -x "$build/tools/headless_runner" ] ||
    fail "'$build/tools/headless_runner' is missing; build it: cmake --build $build --target headless_runner"
content=$(cd "$build/run/content" 2>/dev/null && pwd) ||
    fail "'$build/run/content' is missing; build it: cmake --build $build --target content"
for entry in images.sfa shaders.sfa maps/map1.txt maps/map20.txt; do
    [ -e "$content/$entry" ] ||
        fail "'$content/$entry' is missing; build it: cmake --build $build --target content"
done
case "$jobs" in '' | *[!0-9]* | 0) fail "JOBS must be a positive number, not '$jobs'" ;; esac
runner=$(cd "$build/tools" && pwd)/headless_runner

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# One line per game: map policy seed.
for map in $(seq 1 20); do
    for policy in $policies; do
        for seed in $seeds; do
            echo "$map $policy $seed"
        done
    done
done > "$scratch/games"

echo "balance_report: $(wc -l < "$scratch/games") games, $jobs at a time" >&2
export runner scratch content
self=$(cd "$(dirname "$0")" && pwd)/$(basename "$0")
playAll='xargs -P "$1" -L 1 "$2" --game < "$3/games" > "$3/results"'
sh -c "$playAll" _ "$jobs" "$self" "$scratch"
[ -s "$scratch/results" ] || fail "no game gave a result"
if grep -q ' - ' "$scratch/results"; then
    fail "$(grep -c ' - ' "$scratch/results") games gave no result (see the lines above)"
fi

# Titles, par scores and unlock points, one line per map.
for map in $(seq 1 20); do
    file="$content/maps/map$map.txt"
    printf '%s\t%s\t%s\n' "$(head -n 1 "$file" | tr -d '\r')" \
        "$(sed -n 27p "$file" | awk '{print $1}')" "$(sed -n 28p "$file" | awk '{print $1}')"
done > "$scratch/maps"

mkdir -p "$(dirname "$output")"
awk -v seeds="$seeds" -v policyList="$policies" -F '\t' '
FNR == NR { title[FNR] = $1; par[FNR] = $2 > 0 ? $2 : 1; unlock[FNR] = $3; next }
{
    split($0, f, " ")
    key = f[1] " " f[2]
    n[key]++
    won[key] += f[5] == 1
    rounds[key, n[key]] = f[4]
    score[key, n[key]] = f[6]
    if (f[5] == 1) percent[key, ++wonCount[key]] = int(f[6] * 100 / par[f[1]])
    detail[key] = detail[key] (n[key] > 1 ? " / " : "") (f[5] == 1 ? "won" : "lost") " " f[4] " " f[6]
}
function median(key, table, count,    i, j, t, v) {
    for (i = 1; i <= count; i++) v[i] = table[key, i]
    for (i = 2; i <= count; i++)
        for (j = i; j > 1 && v[j - 1] + 0 > v[j] + 0; j--) { t = v[j]; v[j] = v[j - 1]; v[j - 1] = t }
    return v[int((count + 1) / 2)]
}
END {
    policyCount = split(policyList, policy, " ")
    seedCount = split(seeds, unused, " ")
    print "# Balance of the maps"
    print ""
    print "Written by `tools/balance_report.sh`: every map played as a \"1 player game\" by"
    print "the headless runner, with each policy on the seeds " seeds "."
    print ""
    print "Policies (tools/runner_policies.h):"
    print ""
    print "- idle: the one cannon of the start; nothing is pressed."
    print "- cannons: a new player who presses 3 and nothing else."
    print "- simple: three cannons, every temporary upgrade used as soon as it comes."
    print "- smart: one cannon while one copes (fewer cannons make more upgrades), three"
    print "  when it would not; four fifths of the upgrades permanent; temporary ones kept"
    print "  for a crowded field."
    print ""
    print "Each cell: games won of " seedCount ", the median rounds of all games (frames at 60"
    print "a second) and the median score of the games won as a share of the par of the"
    print "map: what the map earns in unlock points, at most 100 at par (a lost stage"
    print "stores no score). Unlock: the total of points that opens the map."
    print ""
    head = "| Map | Title | Par | Unlock |"
    rule = "|---:|---|---:|---:|"
    for (p = 1; p <= policyCount; p++) { head = head " " policy[p] " |"; rule = rule "---|" }
    print head
    print rule
    for (m = 1; m <= 20; m++) {
        line = "| " m " | " title[m] " | " par[m] " | " unlock[m] " |"
        for (p = 1; p <= policyCount; p++) {
            key = m " " policy[p]
            if (!(key in n)) { line = line " - |"; continue }
            share = won[key] ? median(key, percent, won[key]) "%" : "-"
            line = line sprintf(" %d/%d, %s, %s |", won[key], n[key], median(key, rounds, n[key]),
                                share)
        }
        print line
    }
    print ""
    print "## Every game"
    print ""
    print "Per seed, in the order " seeds ": the outcome, the rounds and the score."
    print ""
    print "| Map | Policy | Games |"
    print "|---:|---|---|"
    for (m = 1; m <= 20; m++)
        for (p = 1; p <= policyCount; p++) {
            key = m " " policy[p]
            if (key in n) print "| " m " | " policy[p] " | " detail[key] " |"
        }
}' "$scratch/maps" <(sort -n -k1,1 -k3,3 "$scratch/results") > "$output"
echo "balance_report: wrote $output" >&2
