#!/bin/bash
# Plays every map with several policies and seeds in the headless runner and
# writes a Markdown table of how the games went, for balancing the campaign.
#
#   tools/balance_report.sh [BUILD_DIR] [OUTPUT] [SEEDS]
#
# BUILD_DIR defaults to build (it must hold tools/headless_runner and the
# built run/content), OUTPUT to docs/balance.md, SEEDS to "1 2 3". Stage games
# run with the idle, simple and smart policies on every seed; survival and
# two-player games with the simple and smart policies on the first seed.
# The games are played in a scratch folder, so build/run's scores stay as
# they are. Needs xvfb-run.
set -eu

build=${1:-build}
output=${2:-docs/balance.md}
seeds=${3:-"1 2 3"}
runner=$(cd "$build/tools" && pwd)/headless_runner
content=$(cd "$build/run/content" && pwd)
jobs=${JOBS:-2}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/content"
for entry in "$content"/*; do
    ln -s "$entry" "$scratch/content/"
done

# One line per game to play: map mode policy seed.
firstSeed=${seeds%% *}
for map in $(seq 1 20); do
    for policy in idle simple smart; do
        for seed in $seeds; do
            echo "$map stage $policy $seed"
        done
    done
    for mode in survival versus; do
        for policy in simple smart; do
            echo "$map $mode $policy $firstSeed"
        done
    done
done > "$scratch/games"

# Each game prints one summary line: map mode policy seed rounds endMessage
# and the score of each side.
play() {
    set -- $1
    out=$(xvfb-run -a "$runner" --run-dir "$scratch" --map "$1" --mode "$2" \
          --policy "$3" --seed "$4" 2>/dev/null || true)
    rounds=$(echo "$out" | sed -n 's/.* after \([0-9]*\) rounds.*/\1/p')
    message=$(echo "$out" | sed -n 's/.*endMessage \([0-9]*\).*/\1/p')
    scores=$(echo "$out" | sed -n 's/.* score \([0-9]*\) endState \([0-9]*\).*/\1:\2/p' | tr '\n' ' ')
    echo "$1 $2 $3 $4 ${rounds:-0} ${message:-0} $scores"
}
export runner scratch
export -f play
xargs -P "$jobs" -I{} bash -c 'play "$1"' _ {} < "$scratch/games" > "$scratch/results"
sort -n -k1,1 -s "$scratch/results" > "$scratch/sorted"

titles=""
pars=""
for map in $(seq 1 20); do
    titles="$titles$(head -n 1 "$content/maps/map$map.txt" | tr -d '\r')|"
    pars="$pars$(sed -n 27p "$content/maps/map$map.txt" | awk '{print $1}') "
done

mkdir -p "$(dirname "$output")"
awk -v titles="$titles" -v pars="$pars" -v seeds="$seeds" '
BEGIN {
    split(titles, title, "|"); split(pars, par, " ")
    print "# Balance of the maps"
    print ""
    print "Made by tools/balance_report.sh: every map played by the headless runner."
    print "Stage games on seeds " seeds "; survival and two-player games on the first seed."
    print "Policies: idle (the one cannon of the start, nothing pressed), simple (three"
    print "cannons, every temporary upgrade used at once), smart (three cannons, three"
    print "quarters of the upgrades permanent, temporary ones kept for a crowded field)."
    print "In two-player games the policy plays the left side and the simple policy the"
    print "right. Rounds are frames at 60 a second; a value per seed, split by slashes."
    print ""
    print "| Map | Title | Mode | Policy | Won | Rounds | Score | Score / par |"
    print "|---:|---|---|---|---|---|---|---|"
}
{
    key = $1 " " $2 " " $3
    if (!(key in count)) { order[++keys] = key; mapOf[key] = $1; modeOf[key] = $2; policyOf[key] = $3 }
    count[key]++
    split($7, left, ":")
    rounds[key] = rounds[key] (count[key] > 1 ? "/" : "") $5
    if ($2 == "stage") {
        won[key] += left[2] == 1
        score[key] = score[key] (count[key] > 1 ? "/" : "") left[1]
        percent[key] = percent[key] (count[key] > 1 ? "/" : "") int(left[1] * 100 / par[$1]) "%"
    } else if ($2 == "survival") {
        score[key] = left[1]
        result[key] = "lost at " sprintf("%.1f", $5 / 3600) " min"
    } else {
        split($8, right, ":")
        score[key] = left[1] " : " right[1]
        result[key] = ($6 == 5 ? "left" : "right") " side won at " sprintf("%.1f", $5 / 3600) " min"
    }
}
END {
    for (i = 1; i <= keys; i++) {
        k = order[i]
        outcome = modeOf[k] == "stage" ? won[k] "/" count[k] : result[k]
        share = modeOf[k] == "stage" ? percent[k] : "-"
        printf "| %d | %s | %s | %s | %s | %s | %s | %s |\n", mapOf[k], title[mapOf[k]], \
               modeOf[k], policyOf[k], outcome, rounds[k], score[k], share
    }
}' "$scratch/sorted" > "$output"
echo "Wrote $output"
