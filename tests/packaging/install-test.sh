#!/bin/sh
# Installs the Dialdeck installer silently into a fresh Wine prefix and checks what a person and
# an administrator would: the program starts from its installed folder (one with spaces and
# non-Latin letters) and from the Start-menu shortcut, the list of installed programs names it
# with its version and publisher, a second install over the running first closes it and keeps the
# settings, and a silent uninstall while it runs removes every installed file and the shortcut
# but leaves the user's registry key.
#   install-test.sh SETUP.exe BIN_DIR WORK_DIR SCREENSHOT_DIR VERSION PUBLISHER
set -u
setup=$1 bin=$2 work=$3 shots=$4 version=$5 publisher=$6
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
export LANG=C.UTF-8 LC_ALL=C.UTF-8
# One display for the program and the probe that looks at it.
if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi
. "$(dirname "$0")/wine-steps.sh"
fresh_prefix "$work"

folder_win='C:\Program Files\Dialdeck Ärger Тест'
folder="$WINEPREFIX/drive_c/Program Files/Dialdeck Ärger Тест"
shortcut="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Dialdeck.lnk"
arp='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Dialdeck'
settings='HKCU\Software\Orvalis\PIM\Settings'
installed="Dialdeck.exe DialdeckRes.dll DialdeckResVga.dll OrvalisPimServ.dll DialdeckSkinskin.ini
    Uninstall.exe Contacts.vcf DialdeckSkin/big_btn_text.bmp DialdeckSkin/p_panel_1.bmp"

step "install silently, with the demo contacts, into a folder with spaces and non-Latin letters"
wine "$setup" /S /DEMO "/D=$folder_win"
expect_code 0 $? "the installer's exit code"
for f in $installed; do
    [ -f "$folder/$f" ] || fail "not installed: $f"
done
[ -f "$shortcut" ] || fail "no Start-menu shortcut"
grep -aq "Dialdeck.exe" "$shortcut" || fail "the shortcut does not lead to Dialdeck.exe"

step "the list of installed programs"
query "$arp" DisplayVersion | grep -q "$version" || fail "no DisplayVersion $version"
query "$arp" Publisher | grep -q "$publisher" || fail "no Publisher $publisher"
query "$arp" DisplayName | grep -q "Dialdeck" || fail "no DisplayName"
query "$arp" UninstallString | grep -q "Uninstall.exe" || fail "no UninstallString"

step "start the installed program from its folder"
start_program "$folder_win\\Dialdeck.exe"
see_board "$shots/install-board.png" --close
wait_program

step "start it from the Start-menu shortcut"
wine start /wait /unix "$shortcut" >/dev/null 2>&1 &
see_board "$shots/install-shortcut.png" --close
wait

step "a setting of the user's, then a second install over the running first"
wine reg add "$settings" /v DdShowBtn /t REG_DWORD /d 1 /f >/dev/null 2>&1
start_program "$folder_win\\Dialdeck.exe"
see_board ""
wine "$setup" /S "/D=$folder_win"
expect_code 0 $? "the second install's exit code"
wait_program || fail "the running program was not closed by the second install"
[ -f "$folder/Dialdeck.exe" ] || fail "the second install left no program"
query "$settings" DdShowBtn | grep -q "0x1" || fail "the second install lost the user's setting"

step "uninstall silently while the program runs"
start_program "$folder_win\\Dialdeck.exe"
see_board ""
wine "$folder_win\\Uninstall.exe" /S
expect_code 0 $? "the uninstaller's exit code"
# The uninstaller goes on from a copy of itself: wait for every process of the prefix.
settle
wait_program || fail "the running program was not closed by the uninstall"
[ ! -e "$folder" ] || fail "left behind: $(cd "$folder" && find . | tr '\n' ' ')"
[ ! -e "$shortcut" ] || fail "the shortcut is still there"
query "$arp" DisplayName >/dev/null && fail "the installed-programs entry is still there"
query "$settings" DdShowBtn | grep -q "0x1" || fail "the uninstall took the user's settings"

finish
