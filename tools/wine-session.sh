# Sourced by the scripts that run Windows programs: one virtual display and one resident
# wineserver for the whole run, so each test starts quickly.
here_ws=$(cd "$(dirname "$0")" && pwd)
export WINEPREFIX="${DD_WINEPREFIX:-$here_ws/../build/wineprefix}"
export DD_WINEPREFIX="$WINEPREFIX"
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
export WINEARCH=win64

dd_xvfb_pid=""
wine_session_start() {
    if [ -z "${DISPLAY:-}" ]; then
        for n in 91 92 93 94 95 96 97 98 99; do
            [ -e "/tmp/.X$n-lock" ] && continue
            Xvfb ":$n" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
            dd_xvfb_pid=$!
            export DISPLAY=":$n"
            sleep 1
            break
        done
    fi
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        mkdir -p "$WINEPREFIX"
        echo "Creating the Wine prefix $WINEPREFIX"
        /usr/lib/wine/wine64 wineboot --init >/dev/null 2>&1 || true
        /usr/lib/wine/wineserver -w
    fi
    /usr/lib/wine/wineserver -p 2>/dev/null || true
    # Start Wine's background services now, with no pipes of ours: a service started later by a
    # test would inherit the test's output pipe and keep its reader waiting.
    /usr/lib/wine/wine64 cmd /c exit </dev/null >/dev/null 2>&1 || true
}

wine_session_stop() {
    /usr/lib/wine/wineserver -k 2>/dev/null || true
    if [ -n "${dd_xvfb_pid:-}" ]; then kill "$dd_xvfb_pid" 2>/dev/null || true; fi
}
