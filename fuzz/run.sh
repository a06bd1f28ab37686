#!/usr/bin/env bash
# Builds the fuzzers and runs each for some seconds from its seeds:
#   [SEED=1] fuzz/run.sh [SECONDS [TOPIC...]]
# Seed 1 tries the same inputs in the same order at every run, so that nothing but a change breaks it.
# For that it does without what differs from run to run: which numbers the program compared, and how
# rare their traces are. Other seeds, or SEED=random, go further.
# What breaks is kept in build/sanitize/fuzz/findings.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
seconds=${1:-20}
topics=("${@:2}")
[ ${#topics[@]} -gt 0 ] || topics=($(ls fuzz/seeds))

cmake --preset sanitize >/dev/null
cmake --build --preset sanitize --target "${topics[@]/#/fuzz_}"
seed=${SEED:-1}
[ "$seed" != random ] || seed=$((1 + SRANDOM % 2147483647))
echo "Seed $seed"
same=
[ "$seed" != 1 ] || same="-use_cmp=0 -entropic=0"
findings=$root/build/sanitize/fuzz/findings
mkdir -p "$findings"

fuzz() {
    local topic=$1 corpus=build/sanitize/fuzz/corpus/$1 dictionary=() log=build/sanitize/fuzz/$1.log
    rm -rf "$corpus"  # it would make the next run another
    mkdir -p "$corpus"
    [ ! -f "fuzz/dictionaries/$topic.txt" ] || dictionary=(-dict="$root/fuzz/dictionaries/$topic.txt")
    "build/sanitize/fuzz/fuzz_$topic" "$root/$corpus" "$root/fuzz/seeds/$topic" "${dictionary[@]}" \
        -seed="$seed" $same -max_total_time="$seconds" -timeout=60 -rss_limit_mb=3000 -print_final_stats=1 \
        -artifact_prefix="$findings/$topic-" >"$log" 2>&1 && ! grep -aq 'runtime error' "$log" || {
        echo "$topic: BROKEN"
        grep -aE 'ERROR|runtime error|not so|SUMMARY|Test unit written' "$log" || tail -20 "$log"
        return 1
    }
    awk -v topic="$topic" '/number_of_executed_units/ { printf "%s: %d inputs without a finding\n", topic, $2 }' "$log"
}
export -f fuzz
export seconds seed same root findings
printf '%s\n' "${topics[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
