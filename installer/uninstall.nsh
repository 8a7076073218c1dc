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
            Call un.RemoveOwnCopy
            SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

!macro RemoveEmptyClassKeys
    DeleteRegKey /ifempty HKCU "Software\Classes\CLSID"
    DeleteRegKey /ifempty HKCU "Software\Classes\Interface"
    DeleteRegKey /ifempty HKCU "Software\Classes\TypeLib"
!macroend

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

; Pictures on their way into records lie beside the library as eight digits with ".tmp", and some of
; them stay there.
Function un.DeletePictures
    FindFirst $0 $1 "$INSTDIR\$Bitness\????????.tmp"
    ${DoWhile} $1 != ""
        ; A number as it is written once more is the name only if the name is one. Its first digit
        ; keeps the noughts that follow from meaning another base.
        StrCpy $2 $1 8
        IntOp $3 "1$2" - 100000000
        IntFmt $3 "%08d.tmp" $3
        ${If} $3 == $1
            Delete "$INSTDIR\$Bitness\$1"
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
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
    !insertmacro OnBothBitnesses un.DeletePictures
    Call un.DeleteFiles
    ReadRegStr $KeptFolder SHCTX "${ENTRY}" KeptFolder
    StrCpy $0 $INSTDIR
    Call un.RemoveFolders
    DeleteRegKey SHCTX "${ENTRY}"
    ${If} $Scope == user
        Call un.RemoveEmptyKeys
    ${EndIf}
SectionEnd

; A user's part of the registry may have had none of these before.
Function un.RemoveEmptyKeys
    DeleteRegKey /ifempty HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    !insertmacro RemoveEmptyClassKeys
    SetRegView 32
    !insertmacro RemoveEmptyClassKeys
    SetRegView lastused
    DeleteRegKey /ifempty HKCU "Software\Classes"
FunctionEnd

; An uninstaller runs from a copy of itself in a folder "~nsu..." of the temporary ones, which nobody
; removes but this: a command that waits until the copy has ended, and tries twice.
Function un.RemoveOwnCopy
    StrCpy $0 "$TEMP\~nsu"
    StrLen $1 $0
    StrCpy $1 $EXEDIR $1
    ${If} $0 == $1
        SetOutPath $TEMP
        ExecShell "" "$SYSDIR\cmd.exe" '/d /c ping -n 2 127.0.0.1 >nul & rd /s /q "$EXEDIR" & ping -n 5 127.0.0.1 >nul & rd /s /q "$EXEDIR"' SW_HIDE
    ${EndIf}
FunctionEnd

Function un.onUninstSuccess
    Call un.RemoveOwnCopy
FunctionEnd

Function un.onUninstFailed
    Call un.RemoveOwnCopy
FunctionEnd
