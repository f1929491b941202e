; The installer for one user. The quiz lies beside the program, so the folder is one that the user
; may write to, and neither an upgrade nor the uninstaller touches Rankelo.MDB,
; Rankelo.INI and the joker's picture, which may be the quiz master's own.
; package.cmake gives VERSION, NOTICE, FOLDER, OUTPUT and ICON, and the two lists of files.

; A 64-bit program wants a 64-bit installer.
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off
RequestExecutionLevel user
ManifestDPIAware true

!include MUI2.nsh
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Rankelo"

Name "Rankelo ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "Rankelo ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Rankelo"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Rankelo"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "Rankelo Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "${NOTICE}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Rankelo.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section
    ; An older version leaves first, so that none of its files stays behind.
    IfFileExists "$INSTDIR\Uninstall.exe" 0 +2
        ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR'

    !include install.nsh
    SetOutPath "$INSTDIR"
    SetOverwrite off
    File "${FOLDER}/Rankelo.MDB"
    File "${FOLDER}/JOKER.BMP"
    SetOverwrite on
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Rankelo.lnk" "$INSTDIR\Rankelo.exe"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Rankelo"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Rankelo.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Rankelo authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section Uninstall
    !include uninstall.nsh
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\Rankelo.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ; Goes only when it is empty: it stays while it holds the quiz.
    RMDir "$INSTDIR"
SectionEnd
