; The installer. For one person: into the own programs folder, nothing is asked of an administrator.
;
;   /S                      without a window
;   /ALLUSERS               for everybody on the computer; an administrator starts it
;   /D=C:\Quorvel           into that folder; the last argument, without quotes
;
; Ends with 0 when it is done, 1 when it was cancelled, 2 when the program is running, and 3 when the
; rights for all users are missing or could not be given. VERSION, FOLDER, FILE, REMOVALS, ICON and
; SIZE come from packaging/pack.sh.

Target amd64-unicode
RequestExecutionLevel user
SetCompressor /SOLID /FINAL zlib
Name "Quorvel"
OutFile "${FILE}"
BrandingText "Quorvel ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Quorvel"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Quorvel ${VERSION} Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"

!define INSTALLED_APP "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvel"
!define RUNNING_EXIT_CODE 2
!define RIGHTS_EXIT_CODE 3
; Users, as every language of Windows understands it.
!define USERS "*S-1-5-32-545"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_DIRECTORYPAGE_TEXT_TOP "Quorvel keeps your classes and settings in the folder that it is installed in. An update leaves them as they are."
!define MUI_FINISHPAGE_TITLE "Quorvel is installed"
!define MUI_FINISHPAGE_TEXT "You find it in the Start menu. Two sample classes are waiting in File > Open; F1 explains the rest."
!define MUI_FINISHPAGE_RUN "$INSTDIR\Quorvel.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Quorvel now"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Quorvel will be removed from this computer. Your classes and settings are kept."
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var allUsers

; Nothing is changed while a program of ours runs: its file cannot be opened for writing then.
!macro DEFINE_RefuseWhileRunning prefix
Function ${prefix}RefuseWhileRunning
    Push "$INSTDIR\qrv.exe"
    Push "$INSTDIR\Quorvel.exe"
    ${For} $1 1 2
        Pop $2
        tryAgain:
        ${If} ${FileExists} $2
            ClearErrors
            FileOpen $0 $2 a
            ${If} ${Errors}
                MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Quorvel is running.$\r$\n$\r$\nSave your class and close Quorvel, then choose Retry. Nothing was changed yet." /SD IDCANCEL IDRETRY tryAgain
                SetErrorLevel ${RUNNING_EXIT_CODE}
                Quit
            ${EndIf}
            FileClose $0
        ${EndIf}
    ${Next}
FunctionEnd
!macroend
!insertmacro DEFINE_RefuseWhileRunning ""
!insertmacro DEFINE_RefuseWhileRunning "un."

Function ChooseWhoFor
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/ALLUSERS" $1
    ${If} ${Errors}
        SetShellVarContext current
        Return
    ${EndIf}
    StrCpy $allUsers yes
    SetShellVarContext all
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
        MessageBox MB_OK|MB_ICONSTOP "Only an administrator can install Quorvel for all users." /SD IDOK
        SetErrorLevel ${RIGHTS_EXIT_CODE}
        Quit
    ${EndIf}
FunctionEnd

; Where it was installed before, unless the command line names a folder.
Function ChooseFolder
    ${If} $INSTDIR != ""
        Return
    ${EndIf}
    ReadRegStr $INSTDIR SHCTX "${INSTALLED_APP}" "InstallLocation"
    ${If} $INSTDIR == ""
        ${If} $allUsers == yes
            ; Not among the programs of Windows: Quorvel writes beside itself.
            StrCpy $INSTDIR $WINDIR 2
            StrCpy $INSTDIR "$INSTDIR\Quorvel"
        ${Else}
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Quorvel"
        ${EndIf}
    ${EndIf}
FunctionEnd

Function .onInit
    SetRegView 64
    Call ChooseWhoFor
    Call ChooseFolder
FunctionEnd

; Everybody keeps classes and settings in the one folder.
Function GiveRightsToUsers
    nsExec::ExecToLog '"$SYSDIR\icacls.exe" "$INSTDIR" /grant ${USERS}:(OI)(CI)M'
    Pop $0
    ${If} $0 != 0
        MessageBox MB_OK|MB_ICONSTOP "The users of this computer could not be given the right to write into$\r$\n$INSTDIR" /SD IDOK
        SetErrorLevel ${RIGHTS_EXIT_CODE}
    ${EndIf}
FunctionEnd

Section
    Call RefuseWhileRunning
    ; Whoever has a folder of classes has been here before.
    StrCpy $3 no
    ${If} ${FileExists} "$INSTDIR\Grades\*.*"
        StrCpy $3 yes
    ${EndIf}
    SetOutPath $INSTDIR
    File /r "${FOLDER}/*"
    ${If} $3 == no
        SetOutPath "$INSTDIR\Grades"
        File "${FOLDER}/Samples/*.qrv"
        SetOutPath $INSTDIR
    ${EndIf}
    ${If} $allUsers == yes
        Call GiveRightsToUsers
    ${EndIf}
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Quorvel.lnk" "$INSTDIR\Quorvel.exe"
    WriteRegStr SHCTX "${INSTALLED_APP}" "DisplayName" "Quorvel"
    WriteRegStr SHCTX "${INSTALLED_APP}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${INSTALLED_APP}" "DisplayIcon" "$INSTDIR\Quorvel.exe"
    WriteRegStr SHCTX "${INSTALLED_APP}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${INSTALLED_APP}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr SHCTX "${INSTALLED_APP}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD SHCTX "${INSTALLED_APP}" "EstimatedSize" ${SIZE}
    WriteRegDWORD SHCTX "${INSTALLED_APP}" "NoModify" 1
    WriteRegDWORD SHCTX "${INSTALLED_APP}" "NoRepair" 1
SectionEnd

; Installed for everybody is what the computer's own list says so of.
Function un.onInit
    SetRegView 64
    SetShellVarContext all
    ReadRegStr $0 SHCTX "${INSTALLED_APP}" "InstallLocation"
    ${If} $0 != $INSTDIR
        SetShellVarContext current
    ${EndIf}
FunctionEnd

Section "Uninstall"
    Call un.RefuseWhileRunning
    SetOutPath $TEMP
    !include "${REMOVALS}"
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\Quorvel.lnk"
    DeleteRegKey SHCTX "${INSTALLED_APP}"
    ; Goes only where nothing of the teacher's is left in it.
    RMDir $INSTDIR
    ${If} ${FileExists} "$INSTDIR\*.*"
        MessageBox MB_OK|MB_ICONINFORMATION "Quorvel was removed. Your classes and settings are kept in$\r$\n$INSTDIR" /SD IDOK
    ${EndIf}
SectionEnd
