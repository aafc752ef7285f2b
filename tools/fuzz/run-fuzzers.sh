#!/bin/sh
# Builds the libFuzzer targets of the archive, picture and replay readers with
# clang and runs each for SECONDS (default 30), seeded with the built content
# (the replay reader starts from nothing).
# Usage: tools/fuzz/run-fuzzers.sh [SECONDS]
set -e
seconds=${1:-30}
root=$(cd "$(dirname "$0")/../.." && pwd)
build="$root/build-fuzz"
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --target fuzz_archive fuzz_spg fuzz_replay content >/dev/null
mkdir -p "$build/fuzz/archive" "$build/fuzz/spg" "$build/fuzz/replay"
cp "$build"/run/content/*.sfa "$build/fuzz/archive/"
cp "$build"/assets/spg/*.spg "$build/fuzz/spg/"
for reader in archive spg replay; do
    log="$build/fuzz/$reader.log"
    if "$build/tools/fuzz_$reader" "$build/fuzz/$reader" -max_total_time="$seconds" -max_len=65536 \
        -artifact_prefix="$build/fuzz/" >"$log" 2>&1; then
        echo "fuzz_$reader: $(grep -c . "$log") log lines, $(tail -1 "$log")"
    else
        tail -40 "$log"
        echo "fuzz_$reader found a fault; the input is in $build/fuzz/"
        exit 1
    fi
done
