#!/usr/bin/env bash
# Builds the fuzzers and runs each from its seeds, for some seconds or for so many inputs:
#   [SEED=1] fuzz/run.sh [SECONDS [TOPIC...]]
#   [SEED=random] [LENGTH=1024] fuzz/run.sh --inputs COUNT [TOPIC...]
# Seconds are for the checks: seed 1 tries the same inputs in the same order at every run, so that
# nothing but a change breaks it. For that it does without what differs from run to run: which numbers
# the program compared, and how rare their traces are. Other seeds, or SEED=random, go further.
# Inputs are for a thorough search, which takes an hour for ten million of most topics. It has a build
# of its own, optimized, and goes on from the inputs of the search before.
# What breaks is kept in build/<preset>/fuzz/findings.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
if [ "${1:-}" = --inputs ]; then
    preset=fuzz seed=${SEED:-random} limits="-runs=$2 -max_len=${LENGTH:-1024}"
    topics=("${@:3}")
else
    preset=sanitize seed=${SEED:-1} limits="-max_total_time=${1:-20}"
    topics=("${@:2}")
fi
[ ${#topics[@]} -gt 0 ] || topics=($(ls fuzz/seeds))

cmake --preset $preset >/dev/null
cmake --build --preset $preset --target "${topics[@]/#/fuzz_}"
[ "$seed" != random ] || seed=$((2 + SRANDOM % 2147483646))
echo "Seed $seed"
[ "$seed" != 1 ] || limits+=" -use_cmp=0 -entropic=0"
build=$root/build/$preset/fuzz
mkdir -p "$build/findings"

fuzz() {
    local topic=$1 corpus=$build/corpus/$1 dictionary=() log=$build/$1.log
    [ $preset = fuzz ] || rm -rf "$corpus"  # it would make the next run another
    mkdir -p "$corpus"
    [ ! -f "fuzz/dictionaries/$topic.txt" ] || dictionary=(-dict="$root/fuzz/dictionaries/$topic.txt")
    nice "$build/fuzz_$topic" "$corpus" "$root/fuzz/seeds/$topic" "${dictionary[@]}" \
        -seed="$seed" $limits -timeout=60 -rss_limit_mb=3000 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$topic-" >"$log" 2>&1 && ! grep -aq 'runtime error' "$log" || {
        echo "$topic: BROKEN"
        grep -aE 'ERROR|runtime error|not so|SUMMARY|Test unit written' "$log" || tail -20 "$log"
        return 1
    }
    awk -v topic="$topic" '/number_of_executed_units/ { printf "%s: %d inputs without a finding\n", topic, $2 }' "$log"
}
export -f fuzz
export preset limits seed root build
printf '%s\n' "${topics[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
