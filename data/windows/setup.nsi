; The setup of Tamarind for one person: into a folder of that person's, without an administrator's rights.
; Told on the command line of makensis: VERSION, STAGE (the folder with what is installed), LISTS (the folder with
; install.nsh and uninstall.nsh, made of it, and the picture side.bmp), KILOBYTES, ICON, SIGN (signs the uninstaller),
; OUTPUT.
;
; Options of the finished setup:
;   /S                without windows
;   /ASSOCIATIONS     offers Tamarind under "Open with"; /NOASSOCIATIONS takes that back
;   /NOSTARTMENU      without an entry in the start menu
;   /D=FOLDER         where to; the last option, without quotes
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestLongPathAware true
ManifestSupportedOS all

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tamarind"
!define FILE_KIND "Tamarind.GameFile"
!define SHORTCUT "$SMPROGRAMS\Tamarind.lnk"
!define RUNNING "Tamarind is running. Please close it first."
!define RESULT_RUNNING 3

Name "Tamarind"
OutFile "${OUTPUT}"
BrandingText "Tamarind ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Tamarind"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
!uninstfinalize '"${SIGN}" "%1"' = 0

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tamarind"
VIAddVersionKey "CompanyName" "the Tamarind project"
VIAddVersionKey "FileDescription" "Setup of Tamarind"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT licence"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEFINISHPAGE_BITMAP "${LISTS}/side.bmp"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Tamarind.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Tamarind will be uninstalled from the following folder. Your settings, packages and \
  other files of your own in it stay."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program cannot be written.
!macro STOP_WHILE_RUNNING
  ${If} ${FileExists} "$INSTDIR\Tamarind.exe"
    ${Do}
      ClearErrors
      FileOpen $0 "$INSTDIR\Tamarind.exe" a
      ${IfNot} ${Errors}
        FileClose $0
        ${Break}
      ${EndIf}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${RUNNING}" /SD IDCANCEL IDRETRY +3
      SetErrorLevel ${RESULT_RUNNING}
      Quit
    ${Loop}
  ${EndIf}
!macroend

; What belongs to others under a file type stays: the type's key goes only when nothing at all is left in it.
!macro FORGET_TYPE ENDING
  DeleteRegValue HKCU "Software\Classes\${ENDING}\OpenWithProgids" "${FILE_KIND}"
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "Software\Classes\${ENDING}\OpenWithProgids"
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "Software\Classes\${ENDING}"
!macroend

!macro TELL_SHELL
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

!macro FORGET_ASSOCIATIONS
  !insertmacro FORGET_TYPE ".bin"
  !insertmacro FORGET_TYPE ".XSec"
  !insertmacro FORGET_TYPE ".GeoPcDx"
  !insertmacro FORGET_TYPE ".TgPcDx"
  DeleteRegKey HKCU "Software\Classes\${FILE_KIND}"
  !insertmacro TELL_SHELL
!macroend

!macro OFFER_FOR ENDING
  WriteRegStr HKCU "Software\Classes\${ENDING}\OpenWithProgids" "${FILE_KIND}" ""
!macroend

Section "Tamarind" ProgramSection
  SectionIn RO
  !insertmacro STOP_WHILE_RUNNING
  ; Files that only an earlier version had would stay for ever.
  ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
    ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR'
  ${EndIf}
  !include "${LISTS}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Tamarind"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Tamarind.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "the Tamarind project"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Start menu entry" StartMenuSection
  CreateShortcut "${SHORTCUT}" "$INSTDIR\Tamarind.exe"
SectionEnd

Section /o "File associations" AssociationsSection
  WriteRegStr HKCU "Software\Classes\${FILE_KIND}" "" "Rail Simulator file"
  WriteRegStr HKCU "Software\Classes\${FILE_KIND}\DefaultIcon" "" "$INSTDIR\Tamarind.exe,0"
  WriteRegStr HKCU "Software\Classes\${FILE_KIND}\shell\open" "" "Open with &Tamarind"
  WriteRegStr HKCU "Software\Classes\${FILE_KIND}\shell\open\command" "" '"$INSTDIR\Tamarind.exe" "%1"'
  !insertmacro OFFER_FOR ".bin"
  !insertmacro OFFER_FOR ".XSec"
  !insertmacro OFFER_FOR ".GeoPcDx"
  !insertmacro OFFER_FOR ".TgPcDx"
  !insertmacro TELL_SHELL
SectionEnd

Section "-"
  ${IfNot} ${SectionIsSelected} ${AssociationsSection}
    !insertmacro FORGET_ASSOCIATIONS
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${ProgramSection} "The programs, their help and the blueprint templates."
  !insertmacro MUI_DESCRIPTION_TEXT ${StartMenuSection} "Tamarind in the start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${AssociationsSection} \
    "Explorer offers to open these files with Tamarind: .bin .XSec .GeoPcDx .TgPcDx. What opens them by default stays."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  ; What was asked for at the last installation holds for this one.
  ReadRegStr $0 HKCU "Software\Classes\${FILE_KIND}\shell\open\command" ""
  ${If} $0 != ""
    !insertmacro SelectSection ${AssociationsSection}
  ${EndIf}
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/ASSOCIATIONS" $0
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${AssociationsSection}
  ${EndIf}
  ClearErrors
  ${GetOptions} $1 "/NOASSOCIATIONS" $0
  ${IfNot} ${Errors}
    !insertmacro UnselectSection ${AssociationsSection}
  ${EndIf}
  ClearErrors
  ${GetOptions} $1 "/NOSTARTMENU" $0
  ${IfNot} ${Errors}
    !insertmacro UnselectSection ${StartMenuSection}
  ${EndIf}
FunctionEnd

; Takes away what the setup brought, name by name; a folder only when it is empty then.
Section "Uninstall"
  !insertmacro STOP_WHILE_RUNNING
  !include "${LISTS}/uninstall.nsh"
  Delete "$INSTDIR\Uninstall.exe"
  ; A folder cannot go while it is the current one.
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  Delete "${SHORTCUT}"
  !insertmacro FORGET_ASSOCIATIONS
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
