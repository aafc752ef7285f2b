#!/bin/sh
# Builds the libFuzzer targets of every reader of outside bytes (archive,
# image, map, score, settings, fps and replay files) with clang under the
# address and undefined-behaviour sanitizers in build-fuzz/, and runs them one
# after the other, each from its seeds in tools/fuzz/corpus/ for RUNS executions
# (default 100000). Prints executions, coverage and time of each; stops at the
# first fault with the input that caused it.
# Usage: tools/fuzz/run-fuzzers.sh [RUNS [READER...]]
#   tools/fuzz/run-fuzzers.sh 10000000 archive image
set -e
runs=${1:-100000}
[ $# -gt 0 ] && shift
readers=${*:-archive image map score settings fps replay}
root=$(cd "$(dirname "$0")/../.." && pwd)
build="$root/build-fuzz"
if ! command -v clang++ >/dev/null; then
    echo "The fuzz targets need clang: apt-get install clang" >&2
    exit 1
fi
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
targets=""
for reader in $readers; do targets="$targets fuzz_$reader"; done
cmake --build "$build" -j "$(nproc)" --target $targets >"$build/fuzz-build.log" 2>&1 ||
    { tail -20 "$build/fuzz-build.log"; exit 1; }
for reader in $readers; do
    work="$build/fuzz/$reader"
    mkdir -p "$work/corpus"
    cp "$root/tools/fuzz/corpus/$reader"/* "$work/corpus/"
    log="$work/log"
    start=$(date +%s)
    # Inputs a little longer than the files the game meets.
    case $reader in
        archive) length=4096 ;; image) length=8192 ;; map | replay) length=2048 ;; *) length=256 ;;
    esac
    if "$build/tools/fuzz/fuzz_$reader" "$work/corpus" -runs="$runs" -max_len=$length \
        -artifact_prefix="$work/" -print_final_stats=1 >"$log" 2>&1; then
        seconds=$(($(date +%s) - start))
        echo "fuzz_$reader: $(grep -o 'Done [0-9]* runs' "$log" | cut -d' ' -f2) executions in" \
             "$seconds s, $(grep 'DONE' "$log" | grep -o 'cov: [0-9]* ft: [0-9]* corp: [^ ]*')"
    else
        tail -40 "$log"
        echo "fuzz_$reader found a fault; the input is in $work/" >&2
        exit 1
    fi
done
