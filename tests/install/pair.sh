#!/usr/bin/env bash
# Runs the station beside an instrument that it plays itself: a good one, one that misbehaves, one that is killed.
# Usage: pair.sh STATION FOLDER
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
station=$1
folder=$2
port=COM207
export XDG_CONFIG_HOME=$folder/config
registry=$XDG_CONFIG_HOME/TRS8_BTL/registry
mkdir -p "$XDG_CONFIG_HOME"
cd "$folder"
printf 'serial.U = mV; lower -40; upper -30\nserial.I = mA; upper 13\nload.1 =\n' >channels

script=pair
outputs=(instrument output log)
source "$tests/jobs.sh"

# Starts an instrument and waits until it has told its device.
start_instrument() {
    : >instrument
    "$station" --instrument --serial "$port" "$@" >instrument 2>&1 &
    instrument=$!
    jobs+=("$instrument")
    await instrument "^$port is /dev/pts/"
}

# Starts a station, which must end by itself.
start_station() {
    rm -f log samples
    timeout -k 1 60 "$station" --serial "$port" --channels channels --samples samples --log log "$@" >output 2>&1 &
    sampling=$!
    jobs+=("$sampling")
}

start_instrument
start_station --seconds 50
await samples serial.U
if "$station" --serial "$port" --channels channels --samples others --log others.log --seconds 0.1 >others.out 2>&1; then
    fail "two stations have one port"
fi
expect others.out "$port can't be opened: .* is open in station \(process"
kill "$sampling"
expect_end "$sampling" 143

start_station --seconds 1.2
expect_end "$sampling" 0
expect output '^serial\.U +mV +-3[0-9.]+ .* ok$'
expect output '^serial\.I +mA .* out of limits$'
expect log '^serial\.I: out of limits'
expect_no log "^$port"
kill -TERM "$instrument"
expect_end "$instrument" 0
expect_no "$registry" "$port"
start_station --seconds 1
expect_end "$sampling" 1
expect output "$port can't be opened: There is no device"

# One that misbehaves, until its plug is pulled; then another one comes.
start_instrument --faulty
start_station --seconds 10
expect_end "$instrument" 0
expect instrument "$port is unplugged"
await log 'unplugged'
start_instrument
expect_end "$sampling" 3
for fault in 'no answer' "answer '.*' is cut" "answer '.*' is garbled" 'bytes came that nobody asked for' 'unplugged'; do
    expect log "^$port: .*$fault"
done
sed '1,/unplugged/d' log >log.end
expect log.end "^$port: answers well again"
expect output '^serial\.U +mV +-3[0-9.]+ .* ok, [0-9]+ missing$'
expect output '^load\.1 .* ok$'
expect output "^station: $port: [0-9]+ turns with a fault; the last: "

# One that is killed leaves its name behind, and the next one takes it over.
start_station --seconds 4
await samples serial.U
kill -KILL "$instrument"
expect_end "$instrument" 137
expect_end "$sampling" 3
expect log "^$port: unplugged"
expect "$registry" "$port"
start_instrument --seconds 1
expect_end "$instrument" 0
expect_no "$registry" "$port"

printf '[Ports]\nCOM207=/dev/null\n' >"$registry"
code=0
"$station" --instrument --serial "$port" >output 2>&1 || code=$?
[ "$code" -eq 1 ] || fail "an instrument took the port of another device"
expect output "station: $port is /dev/null; take another port"
expect "$registry" '^COM207=/dev/null'
