#!/usr/bin/env bash
# Runs every fuzzer of a build for a while: tests/fuzz/run.sh BUILD SECONDS
# What they find interesting stays in BUILD/corpus; what breaks them lands in BUILD/broken.
set -uo pipefail
build=$(realpath "$1")
seconds=$2
cd "$(dirname "$0")"
export LSAN_OPTIONS=suppressions=$PWD/../leaks.txt:print_suppressions=0

failed=0
for source in *Fuzzer.cpp; do
    name=${source%.cpp}
    corpus=$build/corpus/$name
    log=$build/$name.log
    mkdir -p "$corpus" "$build/broken"
    "$build/$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=20000 -use_value_profile=1 \
        -artifact_prefix="$build/broken/$name-" -print_final_stats=1 "$corpus" "seeds/$name" >"$log" 2>&1
    if [ $? -eq 0 ]; then
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
        cover=$(grep -o 'cov: [0-9]*' "$log" | tail -1)
        echo "OK   $name: $runs runs, $cover"
    else
        echo "FAIL $name: see $log"
        tail -20 "$log"
        failed=1
    fi
done
exit $failed
