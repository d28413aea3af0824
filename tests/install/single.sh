#!/usr/bin/env bash
# Starts several stations for one file of samples: the first samples, the others hand over and get its answer.
# Usage: single.sh STATION FOLDER
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
station=$1
folder=$2/single
script=single
outputs=(output output2 log)
source "$tests/jobs.sh"
begin_apart

# Starts the first station and waits until it samples.
start_first() {
    rm -f log samples
    "$station" --channels channels --samples samples --log log "$@" >output 2>&1 &
    first=$!
    jobs+=("$first")
    await samples load.1
}

begin=$SECONDS
start_first --seconds 2
mkdir -p elsewhere
(cd elsewhere && expect_other 0 'samples already goes on' --seconds 4 --samples ../samples)
grep -q "A station in .*single.elsewhere asks: .*goes on for 4 s" log || fail "the first one wasn't asked"
for option in --sql --publish; do
    expect_other 2 'takes --seconds alone' "$option" --samples samples
done
expect_other 0 '^load\.1 ' --seconds 0.1 --channels channels --samples others --log others.log
wait "$first" || fail "the first one failed"
[ $((SECONDS - begin)) -ge 3 ] || fail "the first one didn't go on"
grep -q '^load\.1 ' output || fail "the first one printed no statistics"

# One that is killed stands in nobody's way.
start_first --seconds 50
kill -KILL "$first"
wait "$first" || true
expect_other 0 '^load\.1 ' --seconds 0.1 --channels channels --samples samples --log log
[ "$(find run/TRS8_BTL -type s | wc -l)" -le 1 ] || fail "sockets are left"
rm -rf "$folder"
