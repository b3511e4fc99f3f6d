#!/bin/sh
# Builds the Windows program and runs the board under Wine.
#   tools/run-board.sh [arguments for Dialdeck.exe]
# With a display the board simply runs. Without one it runs on a virtual display: a screenshot is
# saved to build/screenshots/, its path printed, and the program is then closed.
# DIALDECK_PROFILE selects the emulated screen (default 480x640@192).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
build="${DD_BUILD_DIR:-$root/build/windows}"

if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake --preset windows -B "$build" >/dev/null
fi
cmake --build "$build" --target Dialdeck DialdeckRes DialdeckResVga ddshot -j2 >/dev/null

if [ -n "${DISPLAY:-}" ]; then
    exec "$here/wine-exec" "$build/bin/Dialdeck.exe" "$@"
fi

mkdir -p "$root/build/screenshots"
profile="${DIALDECK_PROFILE:-480x640@192}"
shot="$root/build/screenshots/board-$(echo "$profile" | tr '@' '-').png"
windows_shot="Z:$(echo "$shot" | tr '/' '\\')"
rm -f "$shot"

xvfb-run -a -s "-screen 0 1280x1024x24" sh -c '
    here=$1 build=$2 out=$3
    shift 3
    "$here/wine-exec" "$build/bin/Dialdeck.exe" "$@" &
    program=$!
    status=0
    "$here/wine-exec" "$build/bin/ddshot.exe" --out "$out" --close || status=$?
    [ $status -eq 0 ] || kill $program 2>/dev/null || true
    wait $program || true
    exit $status
' run-board "$here" "$build" "$windows_shot" "$@"
echo "$shot"
