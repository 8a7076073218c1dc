; What installing and removing share: regsvr32, files in use, folders. Each function is there twice,
; since an uninstaller may only call functions whose names begin with "un.".

; How setup and uninstaller end, besides 0 (done) and 1 (cancelled by the user).
!define EXIT_NEEDS_ADMINISTRATOR 3
!define EXIT_IN_USE 4
!define EXIT_REGISTRATION 5
!define EXIT_FILES 6

!define UNINSTALLER "uninstall.exe"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kovrel"

Var Scope ; "user" or "all"
Var Bitness ; "x86" or "x64"
Var Switches ; of regsvr32
Var Result ; a program's exit code, or "error" when it did not start
Var BusyFile ; a file that is in use; empty when none is
Var KeptFolder ; the folder that was there before Kovrel's own were made

!macro CheckFile FILE
    ${If} $BusyFile == ""
    ${AndIf} ${FileExists} "$INSTDIR\${FILE}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${FILE}" a
        ${If} ${Errors}
            StrCpy $BusyFile "$INSTDIR\${FILE}"
        ${Else}
            FileClose $0
        ${EndIf}
    ${EndIf}
!macroend

!macro DeleteFile FILE
    Delete "$INSTDIR\${FILE}"
!macroend

!macro RemoveFolder FOLDER
    RMDir "$INSTDIR\${FOLDER}"
!macroend

!macro SharedFunctions UN

; $0 is "Admin" when the process may write for all users.
Function ${UN}GetRights
    UserInfo::GetAccountType
    Pop $0
FunctionEnd

; Runs the command line in $0 with the administrators' group taken from it; its exit code to $Result.
Function ${UN}RunWithoutRights
    StrCpy $Result error
    StrCpy $4 0
    ; Access: assign primary, duplicate, query.
    System::Call 'advapi32::OpenProcessToken(p -1, i 0xB, *p .r1)'
    System::Call 'advapi32::ConvertStringSidToSidW(w "S-1-5-32-544", *p .r2)'
    System::Call '*(p r2, i 0) p .r3'
    System::Call 'advapi32::CreateRestrictedToken(p r1, i 0, i 1, p r3, i 0, p 0, i 0, p 0, *p .r4)'
    ; STARTUPINFO is 68 bytes in 32 bits and says its size; no window is made for a console.
    System::Call '*(i 68, &v64) p .r5'
    System::Call '*(p 0, p 0, i 0, i 0) p .r6'
    System::Call 'advapi32::CreateProcessAsUserW(p r4, p 0, w r0, p 0, p 0, i 0, i 0x08000000, p 0, p 0, p r5, p r6) i .r7'
    ${If} $7 <> 0
        System::Call '*$6(p .r7, p .r8)'
        System::Call 'kernel32::WaitForSingleObject(p r7, i -1)'
        System::Call 'kernel32::GetExitCodeProcess(p r7, *i .s)'
        Pop $Result
        System::Call 'kernel32::CloseHandle(p r7)'
        System::Call 'kernel32::CloseHandle(p r8)'
    ${EndIf}
    System::Free $6
    System::Free $5
    System::Free $3
    System::Call 'kernel32::LocalFree(p r2)'
    System::Call 'kernel32::CloseHandle(p r4)'
    System::Call 'kernel32::CloseHandle(p r1)'
FunctionEnd

; regsvr32 of $Bitness with $Switches on the library of that bitness; its exit code to $Result.
;
; The library registers for all users where it may and for the current one where it may not. What
; is installed for the current user only lies in that user's own folder, so the library must not
; register it for the others because an administrator happens to install it: regsvr32 then runs
; without the administrator's rights.
Function ${UN}RunRegsvr32
    ${If} $Bitness == x64
        StrCpy $0 "$WINDIR\Sysnative"
    ${ElseIf} ${RunningX64}
        StrCpy $0 "$WINDIR\SysWOW64"
    ${Else}
        StrCpy $0 "$WINDIR\System32"
    ${EndIf}
    StrCpy $1 '"$0\regsvr32.exe" $Switches "$INSTDIR\$Bitness\kovrel.dll"'
    Call ${UN}GetRights
    ${If} $Scope == user
    ${AndIf} $0 == Admin
        StrCpy $0 $1
        Call ${UN}RunWithoutRights
    ${Else}
        StrCpy $Result error
        ExecWait $1 $Result
    ${EndIf}
FunctionEnd

; The first file of Kovrel's that a running program holds to $BusyFile.
Function ${UN}FindBusyFile
    StrCpy $BusyFile ""
    !insertmacro EachFile CheckFile
FunctionEnd

Function ${UN}DeleteFiles
    ; A program's current folder cannot be removed.
    SetOutPath $TEMP
    !insertmacro EachFile DeleteFile
    Delete "$INSTDIR\${UNINSTALLER}"
    !insertmacro EachFolder RemoveFolder
FunctionEnd

; Removes the folder in $0 and the ones above it up to $KeptFolder, as far as they are empty.
Function ${UN}RemoveFolders
    ${DoWhile} $0 != $KeptFolder
        ClearErrors
        RMDir $0
        ${If} ${Errors}
            ${Break}
        ${EndIf}
        ${GetParent} $0 $0
        ${If} $0 == ""
            ${Break}
        ${EndIf}
    ${Loop}
FunctionEnd

!macroend
