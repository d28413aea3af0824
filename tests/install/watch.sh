#!/usr/bin/env bash
# Watches the runs of stations from another one: a run that ends, one that fails, one that is killed.
# Usage: watch.sh STATION FOLDER
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
station=$1
folder=$2/watch
mkdir -p "$folder"
cd "$folder"
printf 'load.1 =\n' >channels

script=watch
outputs=(output watched)
source "$tests/jobs.sh"

# Starts a station that publishes its run, which samples already when this returns.
start_run() {
    rm -f samples
    "$station" --publish --channels channels --samples samples --log log "$@" >output 2>&1 &
    run=$!
    jobs+=("$run")
    await samples load.1
}

# Watches it; a file takes what that prints.
start_watch() {
    : >"$1"
    timeout -k 1 60 "$station" --watch "$run" >"$1" 2>&1 &
    watch=$!
    jobs+=("$watch")
}

start_run --seconds 4
start_watch watched
await watched '^Measuring station \[#*-+\] [0-9]+ %, [0-9]+ of [0-9]+, elapsed 0:0:[0-9.]+, .*load\.1: [0-9]'
await watched 'elapsed .*, .*[0-9]+:[0-9]+:[0-9.]+.*, load'
expect_end "$run" 0
expect_end "$watch" 0
expect watched '^Measuring station \[#{20}\] 100 %, ([0-9]+) of \1, elapsed [0-9:.]+, load'
expect watched '^the run is done$'
code=0
"$station" --watch "$run" >watched 2>&1 || code=$?
[ "$code" -eq 1 ] || fail "a run that is over was watched"
expect watched "^no run of process $run is published$"

# Nobody watches what isn't published.
"$station" --channels channels --samples others --log others.log --seconds 50 >output 2>&1 &
run=$!
jobs+=("$run")
await others load.1
start_watch watched
expect_end "$watch" 1
expect watched "^no run of process $run is published$"
kill -KILL "$run"
expect_end "$run" 137

# Two who watch one run, whose station is killed.
start_run --seconds 50
start_watch watched.first
first=$watch
start_watch watched
await watched 'load\.1'
await watched.first 'load\.1'
kill -KILL "$run"
expect_end "$run" 137
for job in "$watch" "$first"; do
    expect_end "$job" 1
done
for file in watched watched.first; do
    expect "$file" "^process $run died$"
done
code=0
"$station" --watch "$run" >watched 2>&1 || code=$?
[ "$code" -eq 1 ] || fail "the run of a dead station was watched"
