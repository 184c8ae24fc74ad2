; The installer for Windows, made by ./package: makensis -DVERSION=... -DFILES=<folder> -DINSTALLER=<file to write>.
;
; It installs for the one person who runs it, so it asks for no administrator. `/S` installs without a question, `/D=`
; (the last option, unquoted) names the folder. Exit codes: 0 installed, 1 given up by the person, 2 not possible.
; Entries and settings are the person's: neither the installer nor the uninstaller writes or removes any.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "MUI2.nsh"

!define NAME "Quillon Journal"
!define WINDOW_CLASS "JCLASS"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\QuillonJournal"

Name "${NAME}"
OutFile "${INSTALLER}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
ManifestDPIAware true
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "FileDescription" "${NAME} setup"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "..\..\res\journal.ico"
!define MUI_UNICON "..\..\res\journal.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "setup_side.bmp"
!define MUI_FINISHPAGE_RUN "$INSTDIR\journal.exe"
!define MUI_UNCONFIRMPAGE_TEXT_TOP \
  "The program will be removed. Your entries and settings stay where they are, for the day you install it again."
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A journal that runs may hold an entry that is not written yet: it is for the person to close.
!macro UntilJournalIsClosed
  ${Do}
    FindWindow $0 "${WINDOW_CLASS}" "${NAME}"
    ${If} $0 == 0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Please close ${NAME} first." /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Quit
  ${Loop}
!macroend

Function .onInit
  !insertmacro UntilJournalIsClosed
FunctionEnd

Function un.onInit
  !insertmacro UntilJournalIsClosed
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  File "${FILES}\journal.exe"
  File "${FILES}\journal-tool.exe"
  File "${FILES}\cehost.dll"
  File "${FILES}\ORVANE.DLL"
  File "${FILES}\readme.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\journal.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\journal.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\journal.exe"
  Delete "$INSTDIR\journal-tool.exe"
  Delete "$INSTDIR\cehost.dll"
  Delete "$INSTDIR\ORVANE.DLL"
  Delete "$INSTDIR\readme.txt"
  Delete "$INSTDIR\uninstall.exe"
  ; Only when nothing else lies in it: a backup put there, say, stays.
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
