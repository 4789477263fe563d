; vorstek.nsi - the installer for Windows. scripts/package calls it.
;
;   VERSION    "2.0"
;   STAGE      folder with what is to be installed
;   REMOVALS   file of instructions that delete just that
;   SIZE       of STAGE, in kilobytes
;   ICON       of installer and uninstaller
;   OUTPUT     the installer
;
; Like the programs it is a 64-bit program. It installs for one user, without
; administrator rights, because the calculator writes its trace log to its own
; folder, which must be writable.
;
;   /S          installs silently
;   /LISTINGS   adds the entries for listings to the Explorer's menu
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
!macro REQUIRE_CLOSED
    ${If} ${FileExists} "$INSTDIR\Vorstek.exe"
        ${Do}
            ClearErrors
            FileOpen $0 "$INSTDIR\Vorstek.exe" a
            ${IfNot} ${Errors}
                FileClose $0
                ${ExitDo}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Vorstek is running. Close it and try again." /SD IDCANCEL IDCANCEL`
                SetErrorLevel 2
                Quit
            ${EndIf}
        ${Loop}
    ${EndIf}
!macroend

; Makes the Explorer reload the menus of files.
!macro TELL_EXPLORER
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section "Vorstek" SectionProgram
    SectionIn RO
    !insertmacro REQUIRE_CLOSED

    ; Removes files that only an earlier version had.
    ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
        ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR'
    ${EndIf}

    SetOutPath "$INSTDIR"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Vorstek.lnk" "$INSTDIR\Vorstek.exe"

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
; run and checked in the console. Double clicks stay with the editor.
Section /o "Explorer entries" SectionListings
    WriteRegStr HKCU "${RUN_VERB}" "" "Run as Vorstek program"
    WriteRegStr HKCU "${RUN_VERB}" "Icon" "$INSTDIR\Vorstek.exe"
    WriteRegStr HKCU "${RUN_VERB}\command" "" '"$SYSDIR\cmd.exe" /k ""$INSTDIR\vorstek-cli.exe" run "%1""'
    WriteRegStr HKCU "${CHECK_VERB}" "" "Check as Vorstek program"
    WriteRegStr HKCU "${CHECK_VERB}" "Icon" "$INSTDIR\Vorstek.exe"
    WriteRegStr HKCU "${CHECK_VERB}\command" "" '"$SYSDIR\cmd.exe" /k ""$INSTDIR\vorstek-cli.exe" check "%1""'
    !insertmacro TELL_EXPLORER
SectionEnd

LangString DESCRIPTION_PROGRAM ${LANG_ENGLISH} "The calculator, its console program, help and examples."
LangString DESCRIPTION_LISTINGS ${LANG_ENGLISH} "Two entries in the Explorer's menu of text files. Text files are opened with your editor as before."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} $(DESCRIPTION_PROGRAM)
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionListings} $(DESCRIPTION_LISTINGS)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    ; Selected by the option, or by an earlier installation.
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/LISTINGS" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionListings}
    ${EndIf}
    ReadRegStr $0 HKCU "${RUN_VERB}" ""
    ${If} $0 != ""
        !insertmacro SelectSection ${SectionListings}
    ${EndIf}
FunctionEnd

Section "Uninstall"
    !insertmacro REQUIRE_CLOSED
    !include "${REMOVALS}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"
    Delete "$SMPROGRAMS\Vorstek.lnk"
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
