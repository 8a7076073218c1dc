; Removal: the registrations first, so that nothing points at a file that is gone.

Function un.onInit
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    StrCpy $Scope user
    SetShellVarContext current
    ReadRegStr $0 HKLM "${ENTRY}" InstallLocation
    ${If} $0 == $INSTDIR
        StrCpy $Scope all
        SetShellVarContext all
        Call un.GetRights
        ${If} $0 != Admin
            ClearErrors
            ${IfNot} ${Silent}
                ExecShell runas "$INSTDIR\${UNINSTALLER}"
            ${EndIf}
            ${If} ${Silent}
            ${OrIf} ${Errors}
                MessageBox MB_ICONSTOP $(NeedsAdministrator) /SD IDOK
            ${EndIf}
            SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

; Codes 3 and 4 of regsvr32 say that the file is no library any more. It has nothing to say about
; its registration then, and must not keep the rest from being removed.
Function un.UnregisterOrFail
    ${IfNot} ${FileExists} "$INSTDIR\$Bitness\kovrel.dll"
        Return
    ${EndIf}
    StrCpy $Switches "/s /u"
    Call un.RunRegsvr32
    ${If} $Result != 0
    ${AndIf} $Result != 3
    ${AndIf} $Result != 4
        MessageBox MB_ICONSTOP $(CannotUnregister) /SD IDOK
        SetErrorLevel ${EXIT_REGISTRATION}
        Abort
    ${EndIf}
FunctionEnd

Section un.Kovrel
    retry:
    Call un.FindBusyFile
    ${If} $BusyFile != ""
        MessageBox MB_ICONEXCLAMATION|MB_RETRYCANCEL $(InUse) /SD IDCANCEL IDRETRY retry
        SetErrorLevel ${EXIT_IN_USE}
        Abort
    ${EndIf}
    !insertmacro OnBothBitnesses un.UnregisterOrFail
    Call un.DeleteFiles
    ReadRegStr $KeptFolder SHCTX "${ENTRY}" KeptFolder
    StrCpy $0 $INSTDIR
    Call un.RemoveFolders
    DeleteRegKey SHCTX "${ENTRY}"
SectionEnd
