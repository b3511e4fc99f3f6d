; The Dialdeck installer. Built by packaging/CMakeLists.txt, which passes:
;   VERSION    the project's version, "major.minor.patch"
;   PUBLISHER  the publisher shown in the list of installed programs
;   STAGE      the folder holding the files to install, laid out as installed; beside it
;              STAGE-skin.nsh lists the skin's bitmaps
;   OUTFILE    the installer to write
; Silent use: Setup.exe /S [/DEMO] [/D=C:\Folder]  and  Uninstall.exe /S
; Uninstalling removes only what was installed: the board, the settings and the contacts file of
; the user are theirs and stay.

; A 64-bit installer for the 64-bit program (and for a Wine with no 32-bit side).
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "WinMessages.nsh"

!include "${STAGE}-skin.nsh"

!define PRODUCT "Dialdeck"
!define BOARD_CLASS "Orvalis_Dialdeck_Wnd_Class"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Dialdeck"
!define SHORTCUT "$SMPROGRAMS\Dialdeck.lnk"
; The board ends on a close message with this code even when it stays resident.
!define FORCED_CLOSE 100

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
BrandingText "${PRODUCT} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "Copyright ${PUBLISHER}"
VIAddVersionKey /LANG=1033 "FileDescription" "${PRODUCT} setup"

!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\Dialdeck.exe"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Asks a running board to end and waits up to five seconds for it; when it is still there the
; person may retry, and a silent run gives up with the reason in the exit code (2).
!macro CLOSE_RUNNING_BOARD
    retry:
    FindWindow $0 "${BOARD_CLASS}"
    ${If} $0 <> 0
        SendMessage $0 ${WM_CLOSE} ${FORCED_CLOSE} 0 /TIMEOUT=5000
        StrCpy $1 0
        waiting:
        Sleep 100
        IntOp $1 $1 + 1
        FindWindow $0 "${BOARD_CLASS}"
        ${If} $0 <> 0
        ${AndIf} $1 < 50
            Goto waiting
        ${EndIf}
        ${If} $0 <> 0
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
                "${PRODUCT} is running and did not close.$\nClose it, then choose Retry." \
                /SD IDCANCEL IDRETRY retry
            SetErrorLevel 2
            Quit
        ${EndIf}
        ; Give the ending process a moment to let go of its files.
        Sleep 500
    ${EndIf}
!macroend

; Pushes the program's path for the Start-menu shortcut. Some shell-link readers keep only the
; ANSI form of a path, so a folder whose name the ANSI code page cannot write is given in its short
; (8.3) form, which every reader takes; any other folder keeps its own name.
Function ShortcutTarget
    StrCpy $0 "$INSTDIR\Dialdeck.exe"
    ; WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, ...) reports in $2 whether a character
    ; had no ANSI form.
    System::Call 'kernel32::WideCharToMultiByte(i 0, i 0x400, w r0, i -1, p 0, i 0, p 0, *i 0 r2) i .r1'
    ${If} $2 <> 0
        GetFullPathName /SHORT $1 "$0"
        ${If} $1 != ""
            StrCpy $0 $1
        ${EndIf}
    ${EndIf}
    Push $0
FunctionEnd

Section "${PRODUCT} (required)" SecProgram
    SectionIn RO
    SetOutPath "$INSTDIR"
    File "${STAGE}/Dialdeck.exe"
    File "${STAGE}/DialdeckRes.dll"
    File "${STAGE}/DialdeckResVga.dll"
    File "${STAGE}/OrvalisPimServ.dll"
    File "${STAGE}/DialdeckSkinskin.ini"
    SetOutPath "$INSTDIR\DialdeckSkin"
    !insertmacro INSTALL_SKIN_FILES
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\Uninstall.exe"

    Call ShortcutTarget
    Pop $0
    CreateShortcut "${SHORTCUT}" "$0" "" "$0" 0

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Dialdeck.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    IntFmt $0 "0x%08X" $0
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" "$0"
SectionEnd

; The demo contacts become the contacts file beside the program, unless one is already there.
; Its time stamp is kept so that uninstalling removes it only while nobody has changed it.
Section /o "Demo contacts" SecDemo
    ${IfNot} ${FileExists} "$INSTDIR\Contacts.vcf"
        SetOutPath "$INSTDIR"
        File "${STAGE}/Demo/Contacts.vcf"
        GetFileTime "$INSTDIR\Contacts.vcf" $0 $1
        WriteRegStr HKLM "${UNINSTALL_KEY}" "DemoContactsTime" "$0:$1"
    ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} \
        "The speed-dial board, its resource libraries, the search service and the sample skin."
    !insertmacro MUI_DESCRIPTION_TEXT ${SecDemo} \
        "A few dozen made-up contacts beside the program, to try the board with."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    SetShellVarContext all
    SetRegView 64
    ; An upgrade goes where the first install went, unless a folder was given.
    ${If} $INSTDIR == "$PROGRAMFILES64\${PRODUCT}"
        ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
        ${If} $0 != ""
            StrCpy $INSTDIR $0
        ${EndIf}
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/DEMO" $1
    ${IfNot} ${Errors}
        SectionSetFlags ${SecDemo} ${SF_SELECTED}
    ${EndIf}
    !insertmacro CLOSE_RUNNING_BOARD
FunctionEnd

Section "Uninstall"
    Delete "$INSTDIR\Dialdeck.exe"
    Delete "$INSTDIR\DialdeckRes.dll"
    Delete "$INSTDIR\DialdeckResVga.dll"
    Delete "$INSTDIR\OrvalisPimServ.dll"
    Delete "$INSTDIR\DialdeckSkinskin.ini"
    !insertmacro UNINSTALL_SKIN_FILES
    RMDir "$INSTDIR\DialdeckSkin"

    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "DemoContactsTime"
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$INSTDIR\Contacts.vcf"
        GetFileTime "$INSTDIR\Contacts.vcf" $1 $2
        ${If} $0 == "$1:$2"
            Delete "$INSTDIR\Contacts.vcf"
        ${EndIf}
    ${EndIf}

    Delete "${SHORTCUT}"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    Delete "$INSTDIR\Uninstall.exe"
    ; Only an empty folder goes: files the person put there stay with it.
    RMDir "$INSTDIR"
SectionEnd

Function un.onInit
    SetShellVarContext all
    SetRegView 64
    !insertmacro CLOSE_RUNNING_BOARD
FunctionEnd
