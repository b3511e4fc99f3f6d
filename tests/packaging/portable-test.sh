#!/bin/sh
# Unpacks the portable archive into a folder with spaces and non-Latin letters in a fresh Wine
# prefix and starts the program from there: it finds its libraries and its skin beside itself.
#   portable-test.sh ARCHIVE.zip BIN_DIR WORK_DIR SCREENSHOT_DIR
set -u
archive=$1 bin=$2 work=$3 shots=$4
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
export LANG=C.UTF-8 LC_ALL=C.UTF-8
if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi
. "$(dirname "$0")/wine-steps.sh"
fresh_prefix "$work"

step "unpack the archive"
stick="$work/Stick Ärger Тест"
mkdir -p "$stick"
(cd "$stick" && cmake -E tar xf "$archive") || fail "the archive does not unpack"
top=$(cd "$stick" && ls)
[ "$(echo "$top" | wc -l)" -eq 1 ] || fail "the archive holds more than one top folder: $top"
folder="$stick/$top"
for f in Dialdeck.exe DialdeckRes.dll DialdeckResVga.dll OrvalisPimServ.dll DialdeckSkinskin.ini \
    DialdeckSkin/big_btn_text.bmp Demo/Contacts.vcf; do
    [ -f "$folder/$f" ] || fail "not in the archive: $f"
done

step "start the program from the unpacked folder"
start_program "Z:$(echo "$folder/Dialdeck.exe" | tr '/' '\\')"
see_board "$shots/portable-board.png" --close
wait_program || fail "the program did not end on a close"

finish
