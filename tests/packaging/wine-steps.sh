# Sourced by the package tests: a fresh Wine prefix of the test's own, the steps' wording and
# checks, and the running program under it.
tools=${tools:?}
status=0
program=""

# Starts over with an empty work folder and a new prefix inside it.
fresh_prefix() {
    rm -rf "$1"
    mkdir -p "$1"
    export DD_WINEPREFIX="$1/wineprefix"
    export WINEPREFIX="$DD_WINEPREFIX"
    wine cmd /c exit >/dev/null 2>&1
}

wine() { "$tools/wine-exec" "$@"; }
step() { echo "--- $*"; }
fail() {
    echo "FAILED: $*"
    status=1
}
expect_code() {
    [ "$2" -eq "$1" ] || fail "$3 is $2, not $1"
}
# A registry value as reg.exe prints it; fails when the value is missing.
query() { wine reg query "$1" /v "$2" 2>/dev/null; }

start_program() {
    wine "$1" >/dev/null 2>&1 &
    program=$!
}

# Waits for the board window to show; with a file, saves a picture of it; --close then ends it.
see_board() {
    out=$1
    shift
    if [ -n "$out" ]; then
        mkdir -p "$(dirname "$out")"
        wine "$bin/ddshot.exe" --out "Z:$(echo "$out" | tr '/' '\\')" "$@" >/dev/null 2>&1
    else
        wine "$bin/ddshot.exe" "$@" >/dev/null 2>&1
    fi
    expect_code 0 $? "looking for the board window: ddshot's exit code"
}

# Waits up to 30 seconds for the started program to end; false when it had to be ended.
wait_program() {
    [ -n "$program" ] || return 0
    n=0
    while kill -0 "$program" 2>/dev/null; do
        n=$((n + 1))
        if [ $n -gt 300 ]; then
            kill "$program" 2>/dev/null
            program=""
            return 1
        fi
        sleep 0.1
    done
    program=""
}

# Waits until every process of the prefix has ended.
settle() { timeout 60 /usr/lib/wine/wineserver -w; }

finish() {
    /usr/lib/wine/wineserver -k 2>/dev/null
    if [ $status -eq 0 ]; then echo "passed"; else echo "failed"; fi
    exit $status
}
