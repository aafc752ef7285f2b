#!/bin/sh
# Planted-fault counts of the test suite by group of the code, with fixed
# seeds, so that a count taken before a change of the tests can be compared
# with one taken after (the same seed and files plant the same faults).
#
#   tools/quality/mutation_counts.sh BUILD_DIR GROUP [COUNT] [SEED]
#
# GROUP is one of sim, data (src/data and src/sound), render, play (src/play,
# src/shell and src/menu). Each group's tests are the programs that check it;
# every program stops at its first failure (the map reader of src/data is
# checked with the rules, so test_rules counts for data too). Runs under
# xvfb-run when there is no DISPLAY. Takes long: each fault is a rebuild and a
# test run.
set -eu
[ $# -ge 2 ] || { echo "usage: $0 BUILD_DIR sim|data|render|play [COUNT] [SEED]" >&2; exit 2; }
build=$(cd "$1" && pwd)
group=$2
count=${3:-20}
seed=${4:-1}
top=$(cd "$(dirname "$0")/../.." && pwd)
mutants=${MUTANTS:-$top/../shared/tools/mutants.py}

case $group in
sim)    files='src/sim/*.cpp'; programs='test_rules test_play_pictures' ;;
data)   files='src/data/*.cpp src/sound/*.cpp'; programs='test_data test_sound test_safeguards test_rules' ;;
render) files='src/render/*.cpp'; programs='test_render test_play_pictures' ;;
play)   files='src/play/*.cpp src/shell/*.cpp src/menu/*.cpp'
        programs='test_shell test_play test_menu test_command_line test_safeguards' ;;
*) echo "unknown group '$group'" >&2; exit 2 ;;
esac

run=""
for program in $programs; do
    run="$run${run:+ && }./$program --gtest_fail_fast"
done
cd "$top"
set -- python3 "$mutants" --build "$build" --files $files --targets $programs \
    --test "cd '$build/tests' && $run" --count "$count" --seed "$seed" --timeout 900
if [ -n "${DISPLAY:-}" ]; then
    "$@"
else
    xvfb-run -a -s "-screen 0 1920x1080x24 -noreset" "$@"
fi
