#!/bin/sh
# Unpacks the portable archive into a folder with spaces and non-Latin letters and starts the
# program from there: it finds its libraries and its skin beside itself and shows its board.
# Run by in-fresh-prefix.sh:  portable-test.sh ARCHIVE.zip BIN_DIR WORK_DIR SCREENSHOT.png
set -u
archive=$1 bin=$2 work=$3 shot=$4
wine_exec=$(cd "$(dirname "$0")/../../tools" && pwd)/wine-exec
# One display for the program and the probe that looks at it.
if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi
status=0
fail() {
    echo "FAILED: $*"
    status=1
}
windows_path() { echo "Z:$1" | tr '/' '\\'; }

stick="$work/Stick Ärger Тест"
mkdir -p "$stick"
(cd "$stick" && cmake -E tar xf "$archive") || fail "the archive does not unpack"
top=$(ls "$stick")
[ "$(echo "$top" | wc -l)" -eq 1 ] || fail "the archive holds more than one top folder: $top"
folder="$stick/$top"
for f in Dialdeck.exe DialdeckRes.dll DialdeckResVga.dll OrvalisPimServ.dll DialdeckSkinskin.ini \
    DialdeckSkin/big_btn_text.bmp Demo/Contacts.vcf; do
    [ -f "$folder/$f" ] || fail "not in the archive: $f"
done

"$wine_exec" "$(windows_path "$folder/Dialdeck.exe")" >/dev/null 2>&1 &
program=$!
mkdir -p "$(dirname "$shot")"
"$wine_exec" "$bin/ddshot.exe" --out "$(windows_path "$shot")" --close >/dev/null 2>&1 ||
    fail "the board of the unpacked program did not show (ddshot: $?)"
n=0
while kill -0 $program 2>/dev/null; do
    n=$((n + 1))
    if [ $n -gt 200 ]; then
        fail "the program did not end on a forced close"
        kill $program
        break
    fi
    sleep 0.1
done
[ $status -eq 0 ] && echo "passed"
exit $status
