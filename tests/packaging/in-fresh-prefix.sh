#!/bin/sh
# Runs a command with a new, empty Wine prefix of its own, so that what it installs meets nothing
# left by another test or run:  in-fresh-prefix.sh WORK_DIR COMMAND [ARGUMENTS...]
# The prefix is WORK_DIR/wineprefix; its processes are ended afterwards.
set -u
work=$1
shift
rm -rf "$work"
mkdir -p "$work"
export DD_WINEPREFIX="$work/wineprefix"
export WINEPREFIX="$DD_WINEPREFIX"
# Non-Latin file names go to Wine as UTF-8.
export LANG=C.UTF-8 LC_ALL=C.UTF-8
status=0
"$@" || status=$?
/usr/lib/wine/wineserver -k 2>/dev/null
exit $status
