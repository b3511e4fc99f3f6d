#!/bin/sh
# Makes the user guide's pictures again: builds the Windows program and the end-to-end tests,
# runs the guide's cases under Wine (tests/e2e/GuideShotsTest.cpp) and copies the pictures they
# save into docs/.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
build="$root/build/windows"
"$here/deps.sh"
if [ ! -f "$build/CMakeCache.txt" ]; then
    (cd "$root" && cmake --preset windows >/dev/null)
fi
cmake --build "$build" --target e2e_tests Dialdeck DialdeckRes DialdeckResVga -j "$(nproc)" >/dev/null
rm -f "$root"/build/screenshots/guide-*.png
. "$here/wine-session.sh"
wine_session_start
status=0
/usr/lib/wine/wine64 "$build/bin/e2e_tests.exe" --gtest_filter='GuideShots.*' || status=$?
wine_session_stop
[ $status -eq 0 ] || exit $status
for shot in "$root"/build/screenshots/guide-*.png; do
    cp "$shot" "$root/docs/$(basename "$shot" | sed 's/^guide-//')"
    echo "docs/$(basename "$shot" | sed 's/^guide-//')"
done
