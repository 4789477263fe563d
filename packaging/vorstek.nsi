; vorstek.nsi - the installer for Windows. scripts/package calls it.
;
;   VERSION    "2.0"
;   STAGE      folder with what is to be installed
;   INSTALLS   file of instructions that install it
;   REMOVALS   file of instructions that delete just that
;   SIZE       of STAGE, in kilobytes
;   ICON       of installer and uninstaller
;   PICTURES   folder with its pictures
;   OUTPUT     the installer
;
; Like the programs it is a 64-bit program. It installs for one user, without
; administrator rights, because the calculator writes its trace log to its own
; folder, which must be writable.
;
;   /S          installs silently
;   /LISTINGS   adds the entries for listings to the Explorer's menu
;   /PATH       adds the folder to the user's PATH, for vorstek-cli
;   /D=FOLDER   installs to that folder; the last argument, without quotes

Unicode true
Target amd64-unicode
RequestExecutionLevel user
ManifestDPIAware true
SetCompressor /SOLID lzma

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorstek"
!define TEXT_FILES    "Software\Classes\SystemFileAssociations\.txt"
!define RUN_VERB      "${TEXT_FILES}\shell\Vorstek.Run"
!define CHECK_VERB    "${TEXT_FILES}\shell\Vorstek.Check"

Name "Vorstek"
BrandingText "Vorstek ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Vorstek"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Vorstek"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installer of the Vorstek calculator"
VIAddVersionKey "CompanyName" "The Vorstek project"
VIAddVersionKey "LegalCopyright" "Copyright (c) 2026 The Vorstek authors"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${PICTURES}/installer_header.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURES}/installer.bmp"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Vorstek.exe"
!define MUI_FINISHPAGE_NOAUTOCLOSE

!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program cannot be replaced. Asks the user to close it; ends with 2 if
; it is not closed, and in a silent installation.
!macro REQUIRE_CLOSED NAME
    ${If} ${FileExists} "$INSTDIR\${NAME}"
        ${Do}
            ClearErrors
            FileOpen $0 "$INSTDIR\${NAME}" a
            ${IfNot} ${Errors}
                FileClose $0
                ${ExitDo}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME} is running, or you may not change it. Close it and try again." /SD IDCANCEL IDCANCEL`
                SetErrorLevel 2
                Quit
            ${EndIf}
        ${Loop}
    ${EndIf}
!macroend

; --- texts that the user may have changed

; Reads the file $R0: its content is at $R1, $R2 bytes. The memory has to be freed.
!macro READ_FILE
    FileOpen $R3 $R0 r
    System::Call 'kernel32::GetFileSize(p R3, p 0) i .R2'
    System::Alloc $R2
    Pop $R1
    System::Call 'kernel32::ReadFile(p R3, p R1, i R2, *i .R4, p 0)'
    FileClose $R3
!macroend

; $R0 is empty afterwards unless the files $R0 and $R5 have the same content.
!macro SAME_CONTENT PREFIX
Function ${PREFIX}SameContent
    !insertmacro READ_FILE
    StrCpy $R6 $R1
    StrCpy $R7 $R2
    StrCpy $R0 $R5
    !insertmacro READ_FILE
    StrCpy $R0 ""
    ${If} $R2 == $R7
        System::Call 'ntdll::RtlCompareMemory(p R1, p R6, p R2) p .R0'
        ${If} $R0 != $R2
            StrCpy $R0 ""
        ${Else}
            StrCpy $R0 "same"
        ${EndIf}
    ${EndIf}
    System::Free $R1
    System::Free $R6
FunctionEnd
!macroend
!insertmacro SAME_CONTENT ""
!insertmacro SAME_CONTENT "un."

; Installs FILE as NAME in the folder $OUTDIR. A file of that name is the user's; then it
; is installed as NEW, unless it would be the same.
!macro INSTALL_TEXT FILE NAME NEW
    ${IfNot} ${FileExists} "$OUTDIR\${NAME}"
        File "/oname=${NAME}" "${STAGE}/${FILE}"
    ${ElseIfNot} ${FileExists} "$OUTDIR\${NEW}"
        File "/oname=${NEW}" "${STAGE}/${FILE}"
        StrCpy $R0 "$OUTDIR\${NAME}"
        StrCpy $R5 "$OUTDIR\${NEW}"
        Call SameContent
        ${If} $R0 != ""
            Delete "$OUTDIR\${NEW}"
        ${EndIf}
    ${EndIf}
!macroend

!macro REMOVE_IF_SHIPPED PATH
    ${If} ${FileExists} "${PATH}"
        StrCpy $R0 "$PLUGINSDIR\shipped"
        StrCpy $R5 "${PATH}"
        Call un.SameContent
        ${If} $R0 != ""
            Delete "${PATH}"
        ${EndIf}
    ${EndIf}
!macroend

; Deletes what INSTALL_TEXT has installed. What differs is the user's.
!macro REMOVE_TEXT FILE PATH NEW
    File "/oname=$PLUGINSDIR\shipped" "${STAGE}/${FILE}"
    !insertmacro REMOVE_IF_SHIPPED "$INSTDIR\${PATH}"
    !insertmacro REMOVE_IF_SHIPPED "$INSTDIR\${NEW}"
!macroend

; --- the user's PATH, which may be longer than a variable of the installer

; Reads the user's PATH, with ";" before and after it: the text is at $R1, its type is
; $R4, and $R5 is where the folder is in it, 0 for nowhere. There is room to append the
; folder. Opens the key $R3; the memory has to be freed.
!macro READ_PATH
    System::Call 'advapi32::RegCreateKeyW(p 0x80000001, w "Environment", *p .R3)'
    StrCpy $R2 0
    StrCpy $R4 2    ; with names of variables in it, unless there is another one
    System::Call 'advapi32::RegQueryValueExW(p R3, w "Path", p 0, *i .R4, p 0, *i .R2) i .R6'
    ${If} $R6 != 0
        StrCpy $R2 0
        StrCpy $R4 2
    ${EndIf}
    StrLen $R7 $INSTDIR
    IntOp $R6 $R7 + 4
    IntOp $R6 $R6 * 2
    IntOp $R6 $R6 + $R2
    System::Alloc $R6       ; filled with zeros
    Pop $R1
    System::Call 'kernel32::lstrcpyW(p R1, w ";")'
    ${If} $R2 > 2
        IntPtrOp $R6 $R1 + 2
        System::Call 'advapi32::RegQueryValueExW(p R3, w "Path", p 0, p 0, p R6, *i R2)'
        System::Call 'kernel32::lstrcatW(p R1, w ";")'
    ${EndIf}
    System::Call 'shlwapi::StrStrIW(p R1, w ";$INSTDIR;") p .R5'
!macroend

; Writes the PATH at $R1 without the ";" before and after it; none if it is empty.
!macro WRITE_PATH
    System::Call 'kernel32::lstrlenW(p R1) i .R2'
    ${If} $R2 < 3
        System::Call 'advapi32::RegDeleteValueW(p R3, w "Path")'
    ${Else}
        IntOp $R6 $R2 - 1
        IntOp $R6 $R6 * 2
        IntPtrOp $R6 $R1 + $R6
        System::Call '*$R6(&i2 0)'
        IntPtrOp $R6 $R1 + 2
        IntOp $R2 $R2 - 1
        IntOp $R2 $R2 * 2
        System::Call 'advapi32::RegSetValueExW(p R3, w "Path", i 0, i R4, p R6, i R2)'
    ${EndIf}
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=2000
!macroend

!macro CLOSE_PATH
    System::Free $R1
    System::Call 'advapi32::RegCloseKey(p R3)'
!macroend

; Makes the Explorer reload the menus of files.
!macro TELL_EXPLORER
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Removes the installation that the registry knows, with files that only an earlier
; version had. A folder with another program's uninstaller is refused: it would be
; replaced.
Function RemoveEarlier
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
    ${AndIf} $0 != $INSTDIR
        MessageBox MB_OK|MB_ICONSTOP "Another program is installed in this folder. Choose another one." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    ${If} $0 == ""
    ${OrIfNot} ${FileExists} "$0\Uninstall.exe"
        Return
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_OKCANCEL|MB_ICONQUESTION "Vorstek is installed in $0. It will be removed. What you have changed there stays." /SD IDOK IDCANCEL`
        SetErrorLevel 2
        Quit
    ${EndIf}
    ExecWait '"$0\Uninstall.exe" /S _?=$0' $1
    ${If} $1 != 0
        SetErrorLevel 2
        Quit
    ${EndIf}
    ; It could not remove itself.
    Delete "$0\Uninstall.exe"
    RMDir "$0"
FunctionEnd

Section "Vorstek" SectionProgram
    SectionIn RO
    !insertmacro REQUIRE_CLOSED "Vorstek.exe"
    !insertmacro REQUIRE_CLOSED "vorstek-cli.exe"
    Call RemoveEarlier

    !include "${INSTALLS}"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateDirectory "$SMPROGRAMS\Vorstek"
    CreateShortcut "$SMPROGRAMS\Vorstek\Vorstek.lnk" "$INSTDIR\Vorstek.exe"
    CreateShortcut "$SMPROGRAMS\Vorstek\Vorstek manual.lnk" "$INSTDIR\VORSTEK.chm"
    CreateShortcut "$SMPROGRAMS\Vorstek\Vorstek examples.lnk" "$INSTDIR\examples"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Vorstek"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Vorstek.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Vorstek project"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; The calculator's window takes no file from its command line, so listings are
; run and checked in the console. Double clicks stay with the editor. The program is
; started without a shell, which would expand %NAME% in the name of a file.
Section /o "Explorer entries" SectionListings
    WriteRegStr HKCU "${RUN_VERB}" "" "Run as Vorstek program"
    WriteRegStr HKCU "${RUN_VERB}" "Icon" "$INSTDIR\Vorstek.exe"
    WriteRegStr HKCU "${RUN_VERB}\command" "" '"$INSTDIR\vorstek-cli.exe" run --wait -- "%1"'
    WriteRegStr HKCU "${CHECK_VERB}" "" "Check as Vorstek program"
    WriteRegStr HKCU "${CHECK_VERB}" "Icon" "$INSTDIR\Vorstek.exe"
    WriteRegStr HKCU "${CHECK_VERB}\command" "" '"$INSTDIR\vorstek-cli.exe" check --wait -- "%1"'
    !insertmacro TELL_EXPLORER
SectionEnd

; A folder that the user has put there is left alone, also by the uninstaller.
Section /o "vorstek-cli on the PATH" SectionPath
    !insertmacro READ_PATH
    ${If} $R5 P= 0
        System::Call 'kernel32::lstrcatW(p R1, w "$INSTDIR;")'
        !insertmacro WRITE_PATH
        WriteRegDWORD HKCU "${UNINSTALL_KEY}" "AddedToPath" 1
    ${EndIf}
    !insertmacro CLOSE_PATH
SectionEnd

LangString DESCRIPTION_PROGRAM ${LANG_ENGLISH} "The calculator, its console program, help and examples."
LangString DESCRIPTION_LISTINGS ${LANG_ENGLISH} "Two entries in the Explorer's menu of text files. Text files are opened with your editor as before."
LangString DESCRIPTION_PATH ${LANG_ENGLISH} "The console program can be called by its name, vorstek-cli, in every folder."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} $(DESCRIPTION_PROGRAM)
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionListings} $(DESCRIPTION_LISTINGS)
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionPath} $(DESCRIPTION_PATH)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    ; Selected by the option, or by an earlier installation.
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/LISTINGS" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionListings}
    ${EndIf}
    ReadRegStr $1 HKCU "${RUN_VERB}" ""
    ${If} $1 != ""
        !insertmacro SelectSection ${SectionListings}
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/PATH" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionPath}
    ${EndIf}
    ReadRegDWORD $1 HKCU "${UNINSTALL_KEY}" "AddedToPath"
    ${If} $1 == 1
        !insertmacro SelectSection ${SectionPath}
    ${EndIf}
FunctionEnd

Section "Uninstall"
    !insertmacro REQUIRE_CLOSED "Vorstek.exe"
    !insertmacro REQUIRE_CLOSED "vorstek-cli.exe"
    InitPluginsDir
    !include "${REMOVALS}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"
    Delete "$SMPROGRAMS\Vorstek\Vorstek.lnk"
    Delete "$SMPROGRAMS\Vorstek\Vorstek manual.lnk"
    Delete "$SMPROGRAMS\Vorstek\Vorstek examples.lnk"
    RMDir "$SMPROGRAMS\Vorstek"

    ReadRegDWORD $0 HKCU "${UNINSTALL_KEY}" "AddedToPath"
    ${If} $0 == 1
        !insertmacro READ_PATH
        ${If} $R5 P<> 0
            ; What follows the folder moves to its place, with the ";" between.
            IntOp $R7 $R7 + 1
            IntOp $R7 $R7 * 2
            IntPtrOp $R7 $R5 + $R7
            System::Call 'kernel32::lstrlenW(p R7) i .R6'
            IntOp $R6 $R6 + 1
            IntOp $R6 $R6 * 2
            System::Call 'ntdll::RtlMoveMemory(p R5, p R7, p R6)'
            !insertmacro WRITE_PATH
        ${EndIf}
        !insertmacro CLOSE_PATH
    ${EndIf}
    DeleteRegKey HKCU "${UNINSTALL_KEY}"

    ReadRegStr $0 HKCU "${RUN_VERB}" ""
    DeleteRegKey HKCU "${RUN_VERB}"
    DeleteRegKey HKCU "${CHECK_VERB}"
    DeleteRegKey /ifempty HKCU "${TEXT_FILES}\shell"
    DeleteRegKey /ifempty HKCU "${TEXT_FILES}"
    DeleteRegKey /ifempty HKCU "Software\Classes\SystemFileAssociations"
    ${If} $0 != ""
        !insertmacro TELL_EXPLORER
    ${EndIf}
SectionEnd
