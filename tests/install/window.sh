#!/usr/bin/env bash
# Starts a station with a window that nobody sees, and others for its file of samples: they are handed over to it.
# Usage: window.sh STATION FOLDER
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
station=$1
folder=$2/windowed
script=window
outputs=(output output2 log)
source "$tests/jobs.sh"
begin_apart

TRS8_BTL_TOOLKIT=qt QT_QPA_PLATFORM=offscreen "$station" --window --channels channels --samples samples --log log \
    >output 2>&1 &
window=$!
jobs+=("$window")

# Its name in the session; from then on the others come later, and wait for the window.
for ((i = 0; i < 1000; ++i)); do
    [ -z "$(find run -type s)" ] || break
    sleep 0.02
done
expect_other 0 'window that is there already shows' --window --samples samples
expect_other 0 'samples already goes on' --seconds 600 --samples samples
await samples load.1
expect_other 0 'samples already goes on' --seconds 700 --samples samples
expect_other 2 'takes --seconds alone' --sql --samples samples
expect_other 2 'takes --seconds alone' --window --screenshot a.png --samples samples
expect_other 0 '^load\.1 ' --seconds 0.1 --channels channels --samples others --log others.log
expect log 'asks: .*--seconds 700'
kill -0 "$window" || fail "the window is gone"
kill "$window"
wait "$window" || true
rm -rf "$folder"
