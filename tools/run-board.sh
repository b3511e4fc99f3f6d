#!/bin/sh
# Builds the Windows program and runs the board on the demo data under Wine.
#   tools/run-board.sh [arguments for Dialdeck.exe]
# The demo contacts are put beside the program as its contacts file, and the demo board is stored
# in the run's own Wine prefix (build/wineprefix-demo) the first time; later runs keep the buttons
# set up since. With a display the board simply runs. Without one it runs on a virtual display: a
# screenshot is saved to build/screenshots/, its path printed, and the program is then closed.
# DIALDECK_PROFILE selects the emulated screen (default 480x640@192).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
build="${DD_BUILD_DIR:-$root/build/windows}"
export DD_WINEPREFIX="${DD_WINEPREFIX:-$root/build/wineprefix-demo}"

# Runs this script under one display: the caller's, or a virtual one it starts again under.
if [ -z "${DD_RUN_BOARD_VIRTUAL:-}" ]; then
    "$here/deps.sh"
    if [ -z "${DISPLAY:-}" ]; then
        export DD_RUN_BOARD_VIRTUAL=1
        exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
    fi
fi

if [ ! -f "$build/CMakeCache.txt" ]; then
    (cd "$root" && cmake --preset windows -B "$build" >/dev/null)
fi
cmake --build "$build" --target Dialdeck DialdeckRes DialdeckResVga ddshot -j "$(nproc)" >/dev/null

# A contacts file already beside the program is kept unless the demo one is newer.
cp -u "$root/demo/Contacts.vcf" "$build/bin/Contacts.vcf"

if ! "$here/wine-exec" reg query 'HKCU\Software\Orvalis\PIM\Dialdeck' >/dev/null 2>&1; then
    echo "Storing the demo board in $DD_WINEPREFIX"
    "$here/wine-exec" regedit /S "Z:$(echo "$root/demo/DemoBoard.reg" | tr '/' '\\')"
fi

if [ -z "${DD_RUN_BOARD_VIRTUAL:-}" ]; then
    exec "$here/wine-exec" "$build/bin/Dialdeck.exe" "$@"
fi

mkdir -p "$root/build/screenshots"
profile="${DIALDECK_PROFILE:-480x640@192}"
shot="$root/build/screenshots/board-$(echo "$profile" | tr '@' '-').png"
rm -f "$shot"
"$here/wine-exec" "$build/bin/Dialdeck.exe" "$@" &
program=$!
status=0
"$here/wine-exec" "$build/bin/ddshot.exe" --out "Z:$(echo "$shot" | tr '/' '\\')" --close ||
    status=$?
[ $status -eq 0 ] || kill $program 2>/dev/null || true
wait $program || true
[ $status -eq 0 ] || exit $status
echo "$shot"
