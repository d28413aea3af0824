# What the scripts share that run stations side by side; `script` is their name, `outputs` the files that tell about a
# fault.

jobs=()
trap 'for job in "${jobs[@]}"; do kill "$job" 2>/dev/null || true; done' EXIT

# Begins in `folder`, with a channel, apart from the stations of all others.
begin_apart() {
    rm -rf "$folder"
    mkdir -p "$folder/run"
    export XDG_RUNTIME_DIR=$folder/run
    cd "$folder"
    printf 'load.1 =\n' >channels
}

fail() {
    echo "$script: $1" >&2
    tail -n 50 "${outputs[@]}" >&2 || true
    exit 1
}

# The process must end with the code.
expect_end() {
    local code=0
    wait "$1" || code=$?
    [ "$code" -eq "$2" ] || fail "ended with $code, not $2"
}

expect() {
    grep -Eq -- "$2" "$1" || fail "'$1' has no '$2'"
}

expect_no() {
    ! grep -Eq -- "$2" "$1" || fail "'$1' has '$2'"
}

# Waits until a file has a line.
await() {
    for ((i = 0; i < 1000; ++i)); do
        ! grep -Eqs -- "$2" "$1" || return 0
        sleep 0.02
    done
    fail "'$1' never gets '$2'"
}

# Runs another station, which must end with the code and print the text.
expect_other() {
    local code=0
    timeout -k 1 60 "$station" "${@:3}" >output2 2>&1 || code=$?
    [ "$code" -eq "$1" ] || fail "'${*:3}' ended with $code, not $1"
    grep -Eq -- "$2" output2 || fail "'${*:3}' printed no '$2'"
}
