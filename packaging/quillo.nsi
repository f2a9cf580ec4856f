; The installer and the uninstaller: for one user, without administrator rights.
;
; packaging/make_setup.py calls the compiler. It writes the included files: the shipped files (files.nsh, from files.txt),
; the names of the settings (settings.nsh, from docs/settings.md) and the publisher (identity.nsh).
;
; Options of the command line:
;   /S         no page and no question
;   /D=FOLDER  where to install; without quotes, and the last option
;   /WAIT=N    how many seconds a running Quillo may take to end; 60 without it
;   /NOSTART   does not start Quillo at the end
;   /HOTKEY    Ctrl+Alt+N makes a new note
;   /NOPATH    does not add the folder to the user's PATH
; Of the uninstaller: /S, /WAIT=N, and /SETTINGS, which removes the settings as well.

Target amd64-unicode
SetCompressor /SOLID lzma
SetCompressorDictSize 4
SetDatablockOptimize on
SetDateSave on
CRCCheck on

!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include nsDialogs.nsh
!include WinMessages.nsh
!include WinVer.nsh
!include x64.nsh
!include Win\COM.nsh
!include Win\Propkey.nsh
!include identity.nsh
!include files.nsh
!include settings.nsh

; ---- Exit codes, which docs/releasing.md and the help list. 1 is the compiler's own: canceled by the user.
!define EXIT_IN_USE 2      ; Quillo stayed open, or a file is in use: nothing was changed
!define EXIT_NEWER 3       ; a newer version is installed
!define EXIT_NO_ROOM 4     ; the disk is full: nothing was changed
!define EXIT_UNSUITABLE 5  ; the system is older than Windows 7, or not a 64-bit one
!define EXIT_TWICE 6       ; another setup of Quillo is running
!define EXIT_NOT_PLACED 7  ; a file could not be replaced: the old ones were restored

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define SETTINGS_KEY "Software\${PUBLISHER}\${NAME}"
!define CAPABILITIES_KEY "Software\${PUBLISHER}\${NAME} Capabilities"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define APP_ID_KEY "Software\Classes\AppUserModelId\${APP_ID}"
!define TYPE_NAME "Quillo.Note"
!define TYPE_KEY "Software\Classes\${TYPE_NAME}"
!define EXTENSION_KEY "Software\Classes\.qln"
!define PROGRAM_LINK "$SMPROGRAMS\${NAME}.lnk"
; A file name cannot contain a colon: the entry's caption is its comment.
!define NEW_NOTE_LINK "$SMPROGRAMS\${NAME} - new note.lnk"
!define HOTKEY_VALUE "New note hotkey"
!define PATH_VALUE "On the path"
!define OPEN_COMMAND '"$INSTDIR\quillo.exe" "%1"'

; Next to the installed files: their replacements, and copies of them in case the update fails.
!define INCOMING "$INSTDIR\~new"
!define OUTGOING "$INSTDIR\~old"

Name "${NAME}"
OutFile "${OUTPUT}"
Caption "${NAME} ${VERSION} Setup"
UninstallCaption "Remove ${NAME}"
BrandingText " "
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel user
AllowRootDirInstall true
Icon "${ICON}"
UninstallIcon "${ICON}"
XPStyle on
ManifestDPIAware true
ManifestDPIAwareness "PerMonitorV2,PerMonitor"
ManifestLongPathAware true
ManifestSupportedOS Win7 Win8 Win8.1 Win10
SetFont "Tahoma" 8
ShowInstDetails nevershow
ShowUninstDetails nevershow
AutoCloseWindow true
InstallButtonText "&Install"
UninstallButtonText "&Remove"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "FileDescription" "${NAME} Setup"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "${COPYRIGHT}"
VIAddVersionKey /LANG=1033 "OriginalFilename" "${OUTPUT_NAME}"
VIAddVersionKey /LANG=1033 "Comments" "${LICENSE}"

!ifdef SIGN
    !uninstfinalize '"${SIGN}" "%1"' = 0
!endif

Page custom SetupPage LeaveSetupPage
Page instfiles
UninstPage custom un.RemovePage un.LeaveRemovePage
UninstPage instfiles
LoadLanguageFile "${NSISDIR}\Contrib\Language files\English.nlf"

Var OldVersion      ; of the existing installation; "" if there is none
Var Hotkey          ; 1: Ctrl+Alt+N makes a new note
Var OnPath          ; 1: the folder is in the user's PATH, for qln
Var Start           ; 1: the program is started at the end
Var Patience        ; seconds that a running program may take to end
Var WasRunning      ; 1: a Quillo was running when its files were to be replaced
Var Process         ; a handle to it, or 0
Var Held            ; the file that another program has open, or ""
Var RemoveSettings  ; 1: the settings are removed as well
Var Box             ; the check box of the page
Var PathBox         ; the second one of the installer's page

; ---- Shared by the installer and the uninstaller

!macro SharedFunctions UN

; Only one setup at a time: two would replace the same files. The system deletes the mutex with the process.
Function ${UN}RefuseASecondSetup
    System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Local\${NAME}-setup") p .r0 ?e'
    Pop $0
    ${If} $0 = 183 ; ERROR_ALREADY_EXISTS
        MessageBox MB_OK|MB_ICONEXCLAMATION "Another setup of ${NAME} is running. Finish that one first." /SD IDOK
        SetErrorLevel ${EXIT_TWICE}
        Quit
    ${EndIf}
FunctionEnd

Function ${UN}ReadPatience
    ${GetParameters} $R0
    StrCpy $Patience 60
    ClearErrors
    ${GetOptions} $R0 "/WAIT=" $R1
    ${IfNot} ${Errors}
        IntOp $Patience $R1 + 0
    ${EndIf}
    StrCpy $Process 0
    StrCpy $WasRunning 0
FunctionEnd

; The process that owns the channel is the running program.
Function ${UN}FindProgram
    System::Call 'user32::FindWindowW(w "ThunderRT6FormDC", w "Quillo Notify") p .r0'
    ${If} $0 P= 0
        Return
    ${EndIf}
    System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
    System::Call 'kernel32::OpenProcess(i 0x100000, i 0, i r1) p .s' ; SYNCHRONIZE
    Pop $Process
    StrCpy $WasRunning 1
FunctionEnd

; $0 = 1 if the running program has ended.
Function ${UN}HasProgramEnded
    StrCpy $0 1
    ${If} $Process P<> 0
        System::Call 'kernel32::WaitForSingleObject(p $Process, i 0) i .r0'
        ${If} $0 = 0
            StrCpy $0 1
        ${Else}
            StrCpy $0 0
        ${EndIf}
    ${EndIf}
FunctionEnd

; $Held is the first installed file that cannot be written now, "" if all can.
Function ${UN}FindHeldFile
    StrCpy $Held ""
    !insertmacro EachFile LookIfHeld
    ; The process that passes on "/close" counts as a running Quillo until it has ended.
    !insertmacro LookIfHeld "~new\quillo.exe"
FunctionEnd

; Asks the program to end and waits. $0 = 1 if it has ended and every file can be written. Questions of the program to its
; user stay on the screen meanwhile.
Function ${UN}CloseProgram
    ${If} ${FileExists} "$INSTDIR\quillo.exe"
        Exec '"$INSTDIR\quillo.exe" /close'
    ${ElseIf} $WasRunning = 1
        Exec '"${INCOMING}\quillo.exe" /close' ; a first installation while one from the zip is running
    ${EndIf}
    IntOp $R2 $Patience * 10
    ${Do}
        Call ${UN}HasProgramEnded
        ${If} $0 = 1
            Call ${UN}FindHeldFile
            ${If} $Held == ""
                StrCpy $0 1
                Return
            ${EndIf}
        ${EndIf}
        Sleep 100
        IntOp $R2 $R2 - 1
    ${LoopUntil} $R2 < 0
    StrCpy $0 0
FunctionEnd

; Until it has ended, or the user gives up: then $0 = 0.
Function ${UN}CloseProgramOrAsk
    Call ${UN}FindProgram
    ${Do}
        Call ${UN}CloseProgram
        ${If} $0 = 1
            Return
        ${EndIf}
        StrCpy $1 "${NAME} is still open. Perhaps it is asking something: look for its question, and answer it."
        ${If} $Held != ""
            StrCpy $1 "Another program is using the file $Held. Close that program."
        ${EndIf}
        ClearErrors
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$1$\r$\n$\r$\nNothing has been changed so far." /SD IDCANCEL \
            IDRETRY again
        StrCpy $0 0
        Return
        again:
    ${Loop}
FunctionEnd

Function ${UN}AnnounceAssociations
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
FunctionEnd

!macroend

; Checks one installed file: opens it for writing, while others may read it, as an update requires.
!macro LookIfHeld FILE
    ${If} $Held == ""
    ${AndIf} ${FileExists} "$INSTDIR\${FILE}"
        ClearErrors
        FileOpen $1 "$INSTDIR\${FILE}" a
        ${If} ${Errors}
            StrCpy $Held "${FILE}"
        ${Else}
            FileClose $1
        ${EndIf}
    ${EndIf}
!macroend

!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

; ---- Before the page

Function .onInit
    ${IfNot} ${RunningX64}
    ${OrIfNot} ${AtLeastWin7}
        MessageBox MB_OK|MB_ICONSTOP "${NAME} needs a 64-bit Windows, 7 or later." /SD IDOK
        SetErrorLevel ${EXIT_UNSUITABLE}
        Quit
    ${EndIf}
    Call RefuseASecondSetup
    Call ReadPatience
    ReadRegStr $OldVersion HKCU "${UNINSTALL_KEY}" "DisplayVersion"
    Call RefuseAnOlderVersion
    Call ReadChoices
FunctionEnd

Function RefuseAnOlderVersion
    ${If} $OldVersion == ""
        Return
    ${EndIf}
    ${VersionCompare} "$OldVersion" "${VERSION}" $0
    ${If} $0 <> 1 ; 1: the first is newer
        Return
    ${EndIf}
    MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 \
        "${NAME} $OldVersion is installed, which is newer. Do you want to replace it with version ${VERSION}?" \
        /SD IDNO IDYES replace
    SetErrorLevel ${EXIT_NEWER}
    Quit
    replace:
FunctionEnd

Function ReadChoices
    ReadRegDWORD $Hotkey HKCU "${UNINSTALL_KEY}" "${HOTKEY_VALUE}"
    ${If} $Hotkey <> 1
        StrCpy $Hotkey 0
    ${EndIf}
    StrCpy $OnPath 1
    ClearErrors
    ReadRegDWORD $0 HKCU "${UNINSTALL_KEY}" "${PATH_VALUE}"
    ${IfNot} ${Errors}
        StrCpy $OnPath $0
    ${EndIf}
    StrCpy $Start 1
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/NOPATH" $R1
    ${IfNot} ${Errors}
        StrCpy $OnPath 0
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/HOTKEY" $R1
    ${IfNot} ${Errors}
        StrCpy $Hotkey 1
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/NOSTART" $R1
    ${IfNot} ${Errors}
        StrCpy $Start 0
    ${EndIf}
FunctionEnd

; ---- The page

Function SetupPage
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateIcon} 0 2u 24u 24u ""
    Pop $1
    Call ShowMark
    ${NSD_CreateLabel} 32u 1u -32u 14u "${NAME} ${VERSION}"
    Pop $1
    CreateFont $2 "Tahoma" 12 400
    SendMessage $1 ${WM_SETFONT} $2 0
    ${NSD_CreateLabel} 32u 16u -32u 12u "${DESCRIPTION}"
    Pop $1
    StrCpy $3 "It is installed for you alone, in the folder"
    ${If} $OldVersion != ""
        StrCpy $3 "It replaces version $OldVersion in the folder"
    ${EndIf}
    ${NSD_CreateLabel} 0 33u 100% 10u "$3"
    Pop $1
    ${NSD_CreateText} 0 43u 100% 12u "$INSTDIR"
    Pop $1
    SendMessage $1 ${EM_SETREADONLY} 1 0
    ${NSD_CreateLabel} 0 61u 100% 20u "Quillo starts together with Windows, so that your notes are always there. To switch that \
        off, open its options and turn to the page Behavior."
    Pop $1
    ${NSD_CreateCheckbox} 0 84u 100% 12u "&Ctrl+Alt+N makes a new note, from any program"
    Pop $Box
    ${NSD_SetState} $Box $Hotkey
    ${NSD_CreateLabel} 12u 96u -12u 10u "Leave it out where these keys type a letter, as on some keyboards."
    Pop $1
    ${NSD_CreateCheckbox} 0 107u 100% 12u "Put &qln, which finds and makes notes in a console, on the path"
    Pop $PathBox
    ${NSD_SetState} $PathBox $OnPath
    ${If} $OldVersion != ""
        ${NSD_CreateLabel} 0 119u 100% 10u "A Quillo that runs is closed and started again. Notes and settings stay."
        Pop $1
    ${EndIf}
    GetDlgItem $0 $HWNDPARENT 1
    SendMessage $0 ${WM_SETTEXT} 0 "STR:&Install"
    nsDialogs::Show
FunctionEnd

; The program's mark in the size of this screen. In: $1, the control.
Function ShowMark
    System::Call 'user32::GetSystemMetrics(i 11) i .r2' ; SM_CXICON
    System::Call 'kernel32::GetModuleHandleW(p 0) p .r3'
    System::Call 'user32::LoadImageW(p r3, p 103, i 1, i r2, i r2, i 0) p .r4' ; 103: the setup's own icon
    SendMessage $1 ${STM_SETICON} $4 0
FunctionEnd

Function LeaveSetupPage
    ${NSD_GetState} $Box $Hotkey
    ${NSD_GetState} $PathBox $OnPath
FunctionEnd

; ---- Installing

!macro Unpack FILE
    File "${STAGE}/${FILE}"
!macroend

; New files are first written next to the old ones: a failure at this point has changed nothing.
Function UnpackBeside
    RMDir /r "${INCOMING}"
    RMDir /r "${OUTGOING}"
    ${GetRoot} "$INSTDIR" $0
    ; In MB: a number of kB overflows on a disk of 2 TB.
    ${DriveSpace} "$0\" "/D=F /S=M" $1
    ; Twice: the old files are copied while the new ones replace them.
    IntOp $2 ${SIZE_KB} / 512
    IntOp $2 $2 + 1
    ${If} $1 < $2
        StrCpy $0 "There is not enough room on the disk: ${NAME} needs $2 MB. Nothing has been changed."
        SetErrorLevel ${EXIT_NO_ROOM}
        Call GiveUp
    ${EndIf}
    ; A failure during unpacking ends the setup, with the exit code set before.
    SetErrorLevel ${EXIT_NO_ROOM}
    ClearErrors
    SetOutPath "${INCOMING}"
    SetOverwrite try
    !insertmacro EachFile Unpack
    WriteUninstaller "${INCOMING}\uninstall.exe"
    SetOutPath "$TEMP" ; the folder could not be removed otherwise
    ${If} ${Errors}
        StrCpy $0 "The files could not be written to $INSTDIR. Nothing has been changed."
        SetErrorLevel ${EXIT_NOT_PLACED}
        Call GiveUp
    ${EndIf}
    SetErrorLevel 0
FunctionEnd

; Ends the setup and restores the earlier state. In: $0, the message; the exit code is set.
Function GiveUp
    RMDir /r "${INCOMING}"
    RMDir /r "${OUTGOING}"
    RMDir "$INSTDIR"
    Call StartAgain
    MessageBox MB_OK|MB_ICONSTOP "$0" /SD IDOK
    Quit
FunctionEnd

; The program that this setup has ended, and no other.
Function StartAgain
    ${If} $WasRunning <> 1
        Return
    ${EndIf}
    Push $0
    Call HasProgramEnded
    ${If} $0 = 1
    ${AndIf} ${FileExists} "$INSTDIR\quillo.exe"
        ; The process that has passed on "/close" counts as a running Quillo until it has ended, which may take a moment.
        StrCpy $R2 50
        ${Do}
            StrCpy $Held ""
            !insertmacro LookIfHeld "quillo.exe"
            ${If} $Held == ""
                ${ExitDo}
            ${EndIf}
            Sleep 100
            IntOp $R2 $R2 - 1
        ${LoopUntil} $R2 < 0
        Exec '"$INSTDIR\quillo.exe"'
    ${EndIf}
    Pop $0
FunctionEnd

!macro CopyAside FILE
    ${If} $R3 = 1
    ${AndIf} ${FileExists} "$INSTDIR\${FILE}"
        System::Call 'kernel32::CopyFileW(w "$INSTDIR\${FILE}", w "${OUTGOING}\${FILE}", i 0) i .R3'
    ${EndIf}
!macroend

; Renames the file, which the system does completely or not at all. 9: replace an existing file, and write through.
!macro PutInPlace FILE
    ${If} $R3 = 1
        System::Call 'kernel32::MoveFileExW(w "${INCOMING}\${FILE}", w "$INSTDIR\${FILE}", i 9) i .R3'
    ${EndIf}
!macroend

; If there was no old file, the new one is deleted.
!macro PutBack FILE
    ${If} ${FileExists} "${OUTGOING}\${FILE}"
        System::Call 'kernel32::MoveFileExW(w "${OUTGOING}\${FILE}", w "$INSTDIR\${FILE}", i 9)'
    ${Else}
        Delete "$INSTDIR\${FILE}"
    ${EndIf}
!macroend

Function ReplaceFiles
    StrCpy $R3 1
    CreateDirectory "${OUTGOING}"
    !insertmacro CopyAside "uninstall.exe"
    !insertmacro EachFile CopyAside
    ${If} $R3 = 1
        !insertmacro PutInPlace "uninstall.exe"
        !insertmacro EachFile PutInPlace
        ${If} $R3 <> 1
            !insertmacro PutBack "uninstall.exe"
            !insertmacro EachFile PutBack
        ${EndIf}
    ${EndIf}
    ${If} $R3 <> 1
        StrCpy $0 "A file could not be put in place in $INSTDIR. The files that were there before have been put back."
        SetErrorLevel ${EXIT_NOT_PLACED}
        Call GiveUp
    ${EndIf}
    RMDir /r "${INCOMING}"
    RMDir /r "${OUTGOING}"
FunctionEnd

Function RegisterInstallation
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quillo.exe,0"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "${SITE}"
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "${HOTKEY_VALUE}" $Hotkey
FunctionEnd

; Registers the type of note files. The user's own choice of a program is stored elsewhere and is not changed.
Function RegisterNoteFiles
    WriteRegStr HKCU "${TYPE_KEY}" "" "Quillo note"
    WriteRegStr HKCU "${TYPE_KEY}" "FriendlyTypeName" "Quillo note"
    WriteRegStr HKCU "${TYPE_KEY}" "PerceivedType" "text"
    WriteRegStr HKCU "${TYPE_KEY}\DefaultIcon" "" "$INSTDIR\quillo.exe,-102"
    WriteRegStr HKCU "${TYPE_KEY}\shell" "" "open"
    WriteRegStr HKCU "${TYPE_KEY}\shell\open\command" "" '${OPEN_COMMAND}'
    ReadRegStr $0 HKCU "${EXTENSION_KEY}" ""
    ${If} $0 == ""
        WriteRegStr HKCU "${EXTENSION_KEY}" "" "${TYPE_NAME}"
    ${EndIf}
    WriteRegStr HKCU "${EXTENSION_KEY}" "PerceivedType" "text"
    WriteRegStr HKCU "${EXTENSION_KEY}" "Content Type" "text/plain"
    WriteRegStr HKCU "${EXTENSION_KEY}\OpenWithProgids" "${TYPE_NAME}" ""
    WriteRegStr HKCU "Software\Classes\Applications\quillo.exe" "FriendlyAppName" "${NAME}"
    WriteRegStr HKCU "Software\Classes\Applications\quillo.exe\shell\open\command" "" '${OPEN_COMMAND}'
    WriteRegStr HKCU "Software\Classes\Applications\quillo.exe\SupportedTypes" ".qln" ""
    WriteRegStr HKCU "${CAPABILITIES_KEY}" "ApplicationName" "${NAME}"
    WriteRegStr HKCU "${CAPABILITIES_KEY}" "ApplicationDescription" "${DESCRIPTION}"
    WriteRegStr HKCU "${CAPABILITIES_KEY}" "ApplicationIcon" "$INSTDIR\quillo.exe,0"
    WriteRegStr HKCU "${CAPABILITIES_KEY}\FileAssociations" ".qln" "${TYPE_NAME}"
    WriteRegStr HKCU "Software\RegisteredApplications" "${NAME}" "${CAPABILITIES_KEY}"
    Call AnnounceAssociations
FunctionEnd

; Name and icon of the balloons; the icon must be a picture file there, not one in a program. Quillo uses the id only if
; it finds this key.
Function RegisterAppId
    WriteRegStr HKCU "${APP_ID_KEY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${APP_ID_KEY}" "IconUri" "$INSTDIR\Quillo.png"
FunctionEnd

; Sets the program's id in a shell link, so that the task bar groups its windows with it. In: $R0, the link. A system that
; refuses still has the link.
Function SetAppIdOfLink
    !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IPersistFile} r1 ""
    ${If} $1 P= 0
        Return
    ${EndIf}
    ${IPersistFile::Load} $1 '("$R0", ${STGM_READWRITE})'
    ${IUnknown::QueryInterface} $1 '("${IID_IPropertyStore}",.r2)'
    ${If} $2 P<> 0
        System::Call 'shlwapi::SHStrDupW(w "${APP_ID}", *p .r5)'
        System::Call '*${SYSSTRUCT_PROPERTYKEY}(${PKEY_AppUserModel_ID})p.r3'
        System::Call '*${SYSSTRUCT_PROPVARIANT}(${VT_LPWSTR},,p r5)p.r4'
        ${IPropertyStore::SetValue} $2 '($3,$4)'
        ${IPropertyStore::Commit} $2 ""
        System::Call 'ole32::CoTaskMemFree(p r5)'
        System::Free $3
        System::Free $4
        ${IUnknown::Release} $2 ""
        ${IPersistFile::Save} $1 '("$R0",1)'
    ${EndIf}
    ${IUnknown::Release} $1 ""
FunctionEnd

Function MakeLinks
    SetOutPath "$INSTDIR" ; becomes the folder in which the links start their programs
    CreateShortcut "${PROGRAM_LINK}" "$INSTDIR\quillo.exe" "" "$INSTDIR\quillo.exe" 0 SW_SHOWNORMAL "" "${DESCRIPTION}"
    StrCpy $R0 "${PROGRAM_LINK}"
    Call SetAppIdOfLink
    ${If} $Hotkey = 1
        CreateShortcut "${NEW_NOTE_LINK}" "$INSTDIR\quillo-new.exe" "" "$INSTDIR\quillo-new.exe" 0 SW_SHOWNORMAL \
            CONTROL|ALT|N "${NAME}: new note"
    ${Else}
        CreateShortcut "${NEW_NOTE_LINK}" "$INSTDIR\quillo-new.exe" "" "$INSTDIR\quillo-new.exe" 0 SW_SHOWNORMAL \
            "" "${NAME}: new note"
    ${EndIf}
    SetOutPath "$TEMP"
FunctionEnd

; A PATH may be longer than a variable here can be: the program itself edits it. A failure is ignored: qln is then
; available by its full path.
Function EditPath
    ${If} $OnPath = 1
        ExecShellWait "open" "$INSTDIR\qln.exe" "--internal-path add user" SW_HIDE
    ${Else}
        ExecShellWait "open" "$INSTDIR\qln.exe" "--internal-path remove user" SW_HIDE
    ${EndIf}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "${PATH_VALUE}" $OnPath
FunctionEnd

; A silent update starts the program only if it has ended it.
Function StartProgram
    ${If} $Start <> 1
        Return
    ${EndIf}
    ${If} ${Silent}
    ${AndIf} $OldVersion != ""
    ${AndIf} $WasRunning <> 1
        Return
    ${EndIf}
    Exec '"$INSTDIR\quillo.exe"'
FunctionEnd

Section
    Call UnpackBeside
    Call CloseProgramOrAsk
    ${If} $0 <> 1
        RMDir /r "${INCOMING}"
        RMDir "$INSTDIR"
        Call StartAgain
        SetErrorLevel ${EXIT_IN_USE}
        Quit
    ${EndIf}
    Call ReplaceFiles
    Call RegisterInstallation
    Call RegisterNoteFiles
    Call RegisterAppId
    Call MakeLinks
    Call EditPath
    Call StartProgram
SectionEnd

; An interrupted unpacking leaves its files.
Function .onInstFailed
    SetOutPath "$TEMP"
    RMDir /r "${INCOMING}"
    RMDir "$INSTDIR"
FunctionEnd

; ---- Removing

Function un.onInit
    Call un.RefuseASecondSetup
    Call un.ReadPatience
    StrCpy $RemoveSettings 0
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/SETTINGS" $R1
    ${IfNot} ${Errors}
        StrCpy $RemoveSettings 1
    ${EndIf}
FunctionEnd

Function un.RemovePage
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 12u "${NAME} is removed from this computer."
    Pop $1
    ${NSD_CreateLabel} 0 20u 100% 11u "Your notes stay. They are text files, and lie in the folder"
    Pop $1
    ${NSD_CreateText} 0 32u 100% 12u "$LOCALAPPDATA\${PUBLISHER}\Notes"
    Pop $1
    SendMessage $1 ${EM_SETREADONLY} 1 0
    ${NSD_CreateCheckbox} 0 56u 100% 12u "Remove my &settings as well"
    Pop $Box
    ${NSD_SetState} $Box $RemoveSettings
    GetDlgItem $0 $HWNDPARENT 1
    SendMessage $0 ${WM_SETTEXT} 0 "STR:&Remove"
    nsDialogs::Show
FunctionEnd

Function un.LeaveRemovePage
    ${NSD_GetState} $Box $RemoveSettings
FunctionEnd

!macro DeleteFile FILE
    Delete "$INSTDIR\${FILE}"
!macroend

Function un.RemoveFiles
    !insertmacro EachFile DeleteFile
    Delete "$INSTDIR\uninstall.exe"
    RMDir /r "${INCOMING}"
    RMDir /r "${OUTGOING}"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR" ; other files in it belong to the user
    Delete "${PROGRAM_LINK}"
    Delete "${NEW_NOTE_LINK}"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
FunctionEnd

; Another Quillo, such as one from the zip, keeps its own start with Windows.
Function un.RemoveRunValue
    ReadRegStr $0 HKCU "${RUN_KEY}" "${NAME}"
    ${If} $0 == "$INSTDIR\quillo.exe"
        DeleteRegValue HKCU "${RUN_KEY}" "${NAME}"
    ${EndIf}
FunctionEnd

Function un.RemoveNoteFiles
    ReadRegStr $0 HKCU "${TYPE_KEY}\shell\open\command" ""
    ${If} $0 != '${OPEN_COMMAND}'
        Return ; belongs to another installation
    ${EndIf}
    DeleteRegKey HKCU "${TYPE_KEY}"
    DeleteRegKey HKCU "Software\Classes\Applications\quillo.exe"
    DeleteRegValue HKCU "${EXTENSION_KEY}\OpenWithProgids" "${TYPE_NAME}"
    DeleteRegKey /ifempty HKCU "${EXTENSION_KEY}\OpenWithProgids"
    ReadRegStr $0 HKCU "${EXTENSION_KEY}" ""
    ${If} $0 == "${TYPE_NAME}"
        DeleteRegValue HKCU "${EXTENSION_KEY}" ""
        DeleteRegValue HKCU "${EXTENSION_KEY}" "PerceivedType"
        DeleteRegValue HKCU "${EXTENSION_KEY}" "Content Type"
        DeleteRegKey /ifempty HKCU "${EXTENSION_KEY}"
    ${EndIf}
    DeleteRegKey HKCU "${CAPABILITIES_KEY}"
    DeleteRegValue HKCU "Software\RegisteredApplications" "${NAME}"
    DeleteRegKey HKCU "${APP_ID_KEY}"
    Call un.AnnounceAssociations
FunctionEnd

!macro DeleteSetting VALUE
    DeleteRegValue HKCU "${SETTINGS_KEY}" "${VALUE}"
!macroend

; Old notes are stored among the settings until Quillo has converted them to files: until then nothing there is changed.
Function un.RemoveSettings
    ReadRegStr $0 HKCU "${SETTINGS_KEY}" "Notes"
    ${If} $0 != ""
    ${AndIf} $0 != "0"
        Return
    ${EndIf}
    ClearErrors
    ReadRegStr $0 HKCU "${SETTINGS_KEY}" "Note 1"
    ${IfNot} ${Errors}
        Return
    ${EndIf}
    !insertmacro EachSetting DeleteSetting
    DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}"
    DeleteRegKey /ifempty HKCU "Software\${PUBLISHER}"
FunctionEnd

Section Uninstall
    Call un.CloseProgramOrAsk
    ${If} $0 <> 1
        SetErrorLevel ${EXIT_IN_USE}
        Quit
    ${EndIf}
    ; Its console can exist slightly longer than the program, and a current folder cannot be removed.
    SetOutPath "$TEMP"
    ExecShellWait "open" "$INSTDIR\qln.exe" "--internal-path remove user" SW_HIDE
    Call un.RemoveFiles
    Call un.RemoveRunValue
    Call un.RemoveNoteFiles
    ${If} $RemoveSettings = 1
        Call un.RemoveSettings
    ${EndIf}
SectionEnd
