#!/usr/bin/env bash
# Builds and runs the benchmarks: all of them, or those of the rooms that are named.
#
#     bench/run.sh [ROOM…]
#
# BENCH_SECONDS is how long the video of the whole job is (60), BENCH_FILTER a regular expression for the rest.
set -euo pipefail
cd "$(dirname "$0")/.."

rooms=("$@")
if [ ${#rooms[@]} -eq 0 ]; then
    for folder in bench/*/; do
        [ -z "$(compgen -G "$folder*.cpp")" ] || rooms+=("$(basename "$folder")")
    done
fi

flock build/.lock cmake --build build --target "${rooms[@]/#/bench_}" >/dev/null

for room in "${rooms[@]}"; do
    printf '\n\033[1m%s\033[0m\n' "$room"
    case $room in
        job) build/bench_job "${BENCH_SECONDS:-60}" ;;
        desktop | editor | mcp | paid | playback | window) "build/bench_$room" ;;
        *) "build/bench_$room" --benchmark_filter="${BENCH_FILTER:-.}" --benchmark_min_time=0.3 ;;
    esac
done
