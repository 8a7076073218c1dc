; The installer of Kovrel: both bitnesses of the library, for the current user or for all users.
;
;   makensis -DVERSION=1.1.0 -DFILES=files.nsh -DOUTPUT=setup.exe kovrel.nsi
;
; FILES defines EachFile, EachFolder and EachTopEntry: what is installed, see scripts/lib/package.sh.
; Switches: /S silent, /ALLUSERS for all users, /D=FOLDER as the last one, without quotation marks.
Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma
; Never asks for more than the user has; what is for all users starts itself again with more.
RequestExecutionLevel user
SetDateSave on

!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!include FileFunc.nsh
!include nsDialogs.nsh
!include "${FILES}"
!include shared.nsh

Name "Kovrel"
BrandingText "Kovrel ${VERSION}"
OutFile "${OUTPUT}"
InstallDir ""
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"

Var GivenFolder ; /D=; empty when not given
Var ScopeGiven ; "yes" when /ALLUSERS was
Var AllButton
Var OlderFolder ; where the version to be replaced is; empty when there is none
Var OlderVersion
Var OlderKeptFolder
Var Message

!define MUI_CUSTOMFUNCTION_UNABORT un.RemoveOwnCopy
!define MUI_WELCOMEPAGE_TEXT $(Welcome)
!insertmacro MUI_PAGE_WELCOME
Page custom ShowScopePage LeaveScopePage
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
; The first one serves everyone whose Windows speaks neither.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Spanish
!include texts.nsh

!macro VersionTexts LANGUAGE DESCRIPTION
    VIAddVersionKey /LANG=${LANGUAGE} ProductName "Kovrel"
    VIAddVersionKey /LANG=${LANGUAGE} ProductVersion "${VERSION}"
    VIAddVersionKey /LANG=${LANGUAGE} FileVersion "${VERSION}"
    VIAddVersionKey /LANG=${LANGUAGE} FileDescription "${DESCRIPTION}"
    VIAddVersionKey /LANG=${LANGUAGE} LegalCopyright ""
!macroend
!insertmacro VersionTexts ${LANG_ENGLISH} "Kovrel ${VERSION} setup"
!insertmacro VersionTexts ${LANG_SPANISH} "Instalador de Kovrel ${VERSION}"

!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

; Everything that depends on whom it is for: registry root, version to be replaced, folder.
Function UseScope
    ${If} $Scope == all
        SetShellVarContext all
        StrCpy $INSTDIR "$PROGRAMFILES\Kovrel"
        ${If} ${RunningX64}
            StrCpy $INSTDIR "$PROGRAMFILES64\Kovrel"
        ${EndIf}
    ${Else}
        SetShellVarContext current
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Kovrel"
    ${EndIf}
    ReadRegStr $OlderFolder SHCTX "${ENTRY}" InstallLocation
    ReadRegStr $OlderVersion SHCTX "${ENTRY}" DisplayVersion
    ReadRegStr $OlderKeptFolder SHCTX "${ENTRY}" KeptFolder
    ${If} $GivenFolder != ""
        StrCpy $INSTDIR $GivenFolder
    ${ElseIf} $OlderFolder != ""
        StrCpy $INSTDIR $OlderFolder
    ${EndIf}
    ; Removed by hand: nothing is left to be replaced.
    ${IfNot} ${FileExists} "$OlderFolder\${UNINSTALLER}"
        StrCpy $OlderFolder ""
    ${EndIf}
FunctionEnd

Function .onInit
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    StrCpy $GivenFolder $INSTDIR
    StrCpy $Scope user
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/ALLUSERS" $1
    ${IfNot} ${Errors}
        StrCpy $Scope all
        StrCpy $ScopeGiven yes
        Call GetRights
        ${If} $0 != Admin
            MessageBox MB_ICONSTOP $(NeedsAdministrator) /SD IDOK
            SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
            Quit
        ${EndIf}
    ${EndIf}
    Call UseScope
FunctionEnd

Function ShowScopePage
    ${If} $ScopeGiven == yes
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT $(ScopeTitle) $(ScopeSubtitle)
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 12u $(ScopeIntro)
    Pop $0
    ${NSD_CreateFirstRadioButton} 0 24u 100% 12u $(ScopeUser)
    Pop $1
    ${NSD_CreateLabel} 12u 38u 280u 20u $(ScopeUserHint)
    Pop $0
    ${NSD_CreateAdditionalRadioButton} 0 66u 100% 12u $(ScopeAll)
    Pop $AllButton
    ${NSD_CreateLabel} 12u 80u 280u 20u $(ScopeAllHint)
    Pop $0
    ; Whoever has it for all users most likely wants that one replaced.
    ReadRegStr $0 HKLM "${ENTRY}" InstallLocation
    ${If} $0 != ""
    ${OrIf} $Scope == all
        StrCpy $1 $AllButton
    ${EndIf}
    ${NSD_Check} $1
    ${NSD_SetFocus} $1
    nsDialogs::Show
FunctionEnd

Function LeaveScopePage
    StrCpy $Scope user
    ${NSD_GetState} $AllButton $0
    ${If} $0 == ${BST_CHECKED}
        Call GetRights
        ${If} $0 != Admin
            ClearErrors
            ExecShell runas $EXEPATH /ALLUSERS
            ${If} ${Errors}
                MessageBox MB_ICONSTOP $(NeedsAdministrator)
                Abort
            ${EndIf}
            Quit
        ${EndIf}
        StrCpy $Scope all
    ${EndIf}
    Call UseScope
FunctionEnd

!macro ExtractFile FILE
    File "/oname=$INSTDIR\${FILE}" "${STAGE}\${FILE}"
!macroend

!macro MakeFolder FOLDER
    CreateDirectory "$INSTDIR\${FOLDER}"
!macroend

!macro KeepCopy ENTRY_NAME
    ${If} ${FileExists} "$OlderFolder\${ENTRY_NAME}"
        CopyFiles /SILENT "$OlderFolder\${ENTRY_NAME}" "$PLUGINSDIR\older"
    ${EndIf}
!macroend

; The nearest folder above (or equal to) $INSTDIR that is there already, to $KeptFolder.
Function FindKeptFolder
    StrCpy $KeptFolder $INSTDIR
    ${DoUntil} ${FileExists} "$KeptFolder\*.*"
        ${GetParent} $KeptFolder $KeptFolder
        ${If} $KeptFolder == ""
            ${Break}
        ${EndIf}
    ${Loop}
FunctionEnd

; The entry in Windows' list of programs, of the version in $0.
Function WriteEntry
    WriteRegStr SHCTX "${ENTRY}" DisplayName "Kovrel $0"
    WriteRegStr SHCTX "${ENTRY}" DisplayVersion $0
    WriteRegStr SHCTX "${ENTRY}" Publisher "Kovrel"
    WriteRegStr SHCTX "${ENTRY}" DisplayIcon "$INSTDIR\${UNINSTALLER}"
    WriteRegStr SHCTX "${ENTRY}" InstallLocation $INSTDIR
    WriteRegStr SHCTX "${ENTRY}" KeptFolder $KeptFolder
    WriteRegStr SHCTX "${ENTRY}" UninstallString '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr SHCTX "${ENTRY}" QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD SHCTX "${ENTRY}" NoModify 1
    WriteRegDWORD SHCTX "${ENTRY}" NoRepair 1
    SectionGetSize 0 $1
    WriteRegDWORD SHCTX "${ENTRY}" EstimatedSize $1
FunctionEnd

; Takes the older version away by its own uninstaller, which knows what it consists of; a copy of
; its files is kept until the new one is registered.
Function RemoveOlder
    CreateDirectory "$PLUGINSDIR\older"
    !insertmacro EachTopEntry KeepCopy
    !insertmacro KeepCopy "${UNINSTALLER}"
    StrCpy $Result error
    ExecWait '"$OlderFolder\${UNINSTALLER}" /S _?=$OlderFolder' $Result
FunctionEnd

; What the older version's uninstaller cannot remove while it runs: itself and its folder.
Function RemoveOlderUninstaller
    SetOutPath $TEMP
    Delete "$OlderFolder\${UNINSTALLER}"
    StrCpy $0 $OlderFolder
    StrCpy $KeptFolder $OlderKeptFolder
    Call RemoveFolders
FunctionEnd

!macro OnBothBitnesses FUNCTION
    StrCpy $Bitness x86
    Call ${FUNCTION}
    ${If} ${IsNativeAMD64}
        StrCpy $Bitness x64
        Call ${FUNCTION}
    ${EndIf}
!macroend

Function RegisterOrFail
    StrCpy $Switches "/s"
    Call RunRegsvr32
    ${If} $Result != 0
        StrCpy $Message $(CannotRegister)
        SetErrorLevel ${EXIT_REGISTRATION}
        Call UndoAndStop
    ${EndIf}
FunctionEnd

Function UnregisterIfThere
    StrCpy $Switches "/s /u"
    ${If} ${FileExists} "$INSTDIR\$Bitness\kovrel.dll"
        Call RunRegsvr32
    ${EndIf}
FunctionEnd

Function RegisterIfThere
    StrCpy $Switches "/s"
    ${If} ${FileExists} "$INSTDIR\$Bitness\kovrel.dll"
        Call RunRegsvr32
    ${EndIf}
FunctionEnd

; Puts everything back as it was, says $Message and ends.
Function UndoAndStop
    !insertmacro OnBothBitnesses UnregisterIfThere
    Call DeleteFiles
    StrCpy $0 $INSTDIR
    Call RemoveFolders
    DeleteRegKey SHCTX "${ENTRY}"
    ${If} $OlderFolder != ""
        StrCpy $INSTDIR $OlderFolder
        StrCpy $KeptFolder $OlderKeptFolder
        CreateDirectory $INSTDIR
        CopyFiles /SILENT "$PLUGINSDIR\older\*.*" $INSTDIR
        !insertmacro OnBothBitnesses RegisterIfThere
        StrCpy $0 $OlderVersion
        Call WriteEntry
    ${EndIf}
    MessageBox MB_ICONSTOP $Message /SD IDOK
    Abort
FunctionEnd

Section
    InitPluginsDir
    retry:
    Call FindBusyFile
    ${If} $BusyFile == ""
    ${AndIf} $OlderFolder != ""
        Call RemoveOlder
        ${If} $Result == ${EXIT_IN_USE}
            StrCpy $BusyFile $OlderFolder
        ${ElseIf} $Result != 0
            MessageBox MB_ICONSTOP $(CannotRemoveOlder) /SD IDOK
            SetErrorLevel ${EXIT_REGISTRATION}
            Abort
        ${EndIf}
    ${EndIf}
    ${If} $BusyFile != ""
        MessageBox MB_ICONEXCLAMATION|MB_RETRYCANCEL $(InUse) /SD IDCANCEL IDRETRY retry
        SetErrorLevel ${EXIT_IN_USE}
        Abort
    ${EndIf}
    ${If} $OlderFolder != ""
        Call RemoveOlderUninstaller
    ${EndIf}

    Call FindKeptFolder
    ClearErrors
    SetOverwrite try
    SetOutPath $INSTDIR
    !insertmacro EachFolder MakeFolder
    !insertmacro EachFile ExtractFile
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    ${If} ${Errors}
        StrCpy $Message $(CannotWrite)
        SetErrorLevel ${EXIT_FILES}
        Call UndoAndStop
    ${EndIf}
    !insertmacro OnBothBitnesses RegisterOrFail
    StrCpy $0 ${VERSION}
    Call WriteEntry
SectionEnd

!include uninstall.nsh
