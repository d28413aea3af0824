#!/usr/bin/env bash
# Starts several stations for one file of samples: the first samples, the others hand over and get its answer.
# Usage: single.sh STATION FOLDER
set -euo pipefail
station=$1
folder=$2/single
rm -rf "$folder"
mkdir -p "$folder/run"
export XDG_RUNTIME_DIR=$folder/run
cd "$folder"
printf 'load.1 =\n' >channels

first=
trap '[ -z "$first" ] || kill -KILL "$first" 2>/dev/null || true' EXIT

fail() {
    echo "single: $1" >&2
    tail -n 50 output output2 log >&2 || true
    exit 1
}

# Starts the first station and waits until it samples.
start_first() {
    rm -f log samples
    "$station" --channels channels --samples samples --log log "$@" >output 2>&1 &
    first=$!
    for ((i = 0; i < 1000; ++i)); do
        ! grep -qs load.1 samples || return 0
        sleep 0.02
    done
    fail "the first station doesn't sample"
}

# Starts another one, which must end with the code and print the text.
expect_other() {
    local code=0
    timeout -k 1 60 "$station" "${@:3}" >output2 2>&1 || code=$?
    [ "$code" -eq "$1" ] || fail "'${*:3}' ended with $code, not $1"
    grep -Eq -- "$2" output2 || fail "'${*:3}' printed no '$2'"
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
first=
expect_other 0 '^load\.1 ' --seconds 0.1 --channels channels --samples samples --log log
[ "$(find run/TRS8_BTL -type s | wc -l)" -le 1 ] || fail "sockets are left"
rm -rf "$folder"
