; The setup for one user: programs, handler module and documents, without administrator rights.
;
;   makensis -DFILES=folder -DOUTPUT=setup.exe -DVERSION=version -DSIZE=kilobytes setup.nsi
;
; /S runs setup and removal without a window, /NOMENU leaves the menus of folders and drives alone. The removal leaves
; the presets; /PRESETS takes them too.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include FileFunc.nsh
!include LogicLib.nsh
!include nsDialogs.nsh
!include Win\WinError.nsh
!include WinMessages.nsh
!include x64.nsh

!define UninstallKey "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tamblewick"
!define RunOnceKey "Software\Microsoft\Windows\CurrentVersion\RunOnce"
!define SettingsKey "Software\Tamblewick"
!define ClassKey "CLSID\{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}"
!define Shortcut "$SMPROGRAMS\Tamblewick.lnk"
; The module as the user's own classes name it.
!define UserModule 'HKCU "Software\Classes\${ClassKey}\InProcServer32" ""'
; The control of the text on the page of the folder.
!define IntroText 1006

Name "Tamblewick ${VERSION}"
OutFile "${OUTPUT}"
Icon "${FILES}\tamblewick.ico"
UninstallIcon "${FILES}\tamblewick.ico"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Tamblewick"
InstallDirRegKey HKCU "${UninstallKey}" "InstallLocation"
BrandingText " "
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tamblewick"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Setup of Tamblewick"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "Tamblewick"
VIAddVersionKey "LegalCopyright" "Copyright 2026 Ostrel Vane"

Page directory
Page custom ShowMenuPage "" ": Menus"
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; ---- The folder: one that holds other files is not used

Var Folder

; Sets $Folder to the path and returns if Tamblewick can be installed there.
!macro TryFolder path
    ${DirState} "${path}" $0
    ReadRegStr $1 HKCU "${UninstallKey}" "InstallLocation"
    ReadRegStr $2 HKCU "${RunOnceKey}" "${path}\uninstall.exe"
    ${If} $0 <> 1
    ${OrIf} $1 == "${path}"
    ${OrIf} $2 != ""
        StrCpy $Folder "${path}"
        Return
    ${EndIf}
!macroend

; Sets $Folder to the chosen folder if it is empty or holds an installation, even one whose removal is not complete;
; otherwise to a folder Tamblewick below it, under the same condition; otherwise to nothing.
Function FindFolder
    !insertmacro TryFolder "$INSTDIR"
    !insertmacro TryFolder "$INSTDIR\Tamblewick"
    StrCpy $Folder ""
FunctionEnd

; Called for each change of the text on the page of the folder. Abort disables "Install".
Function .onVerifyInstDir
    Call FindFolder
    ${If} $Folder == $INSTDIR
        StrCpy $0 "Setup will install Tamblewick into this folder."
    ${ElseIf} $Folder != ""
        StrCpy $0 "This folder holds other files. Setup will install Tamblewick into $Folder."
    ${Else}
        StrCpy $0 "This folder and the folder Tamblewick in it hold other files. Choose another folder."
    ${EndIf}
    FindWindow $1 "#32770" "" $HWNDPARENT
    GetDlgItem $1 $1 ${IntroText}
    SendMessage $1 ${WM_SETTEXT} 0 "STR:$0"
    ${If} $Folder == ""
        Abort
    ${EndIf}
FunctionEnd

; ---- The menus of folders and drives: registered for this user alone

; The state of the check box.
Var Menu

; An update keeps what the user has chosen, which is whether the installed module is registered.
Function .onInit
    StrCpy $Menu ${BST_CHECKED}
    ReadRegStr $0 HKCU "${UninstallKey}" "InstallLocation"
    ReadRegStr $1 ${UserModule}
    ${If} $0 != ""
    ${AndIf} $1 != "$0\tamblewick.dll"
        StrCpy $Menu ${BST_UNCHECKED}
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/NOMENU" $1
    ${IfNot} ${Errors}
        StrCpy $Menu ${BST_UNCHECKED}
    ${EndIf}
FunctionEnd

; Shows the page of the check box. Each click is kept, so that "Back" and "Next" show it again.
Function ShowMenuPage
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 36u "Tamblewick can be an entry in the menu that a right click on a folder or a drive \
        opens. Windows 11 shows the entry under $\"Show more options$\". It is made for you alone and needs no \
        administrator rights."
    Pop $0
    ${NSD_CreateCheckBox} 0 42u 100% 12u "&Add to the menus of folders and drives"
    Pop $0
    ${NSD_SetState} $0 $Menu
    ${NSD_OnClick} $0 KeepMenuChoice
    nsDialogs::Show
FunctionEnd

; The stack holds the check box.
Function KeepMenuChoice
    Pop $0
    ${NSD_GetState} $0 $Menu
FunctionEnd

; regsvr32 calls the module in a process of its own: a module that fails or stays loaded does not affect the setup, and
; the path needs no search for DLLs in the setup's folder.
!macro UnregisterForUser
    ReadRegStr $0 ${UserModule}
    ${If} $0 == "$INSTDIR\tamblewick.dll"
        ExecWait '"$SYSDIR\regsvr32.exe" /s /u /n /i:user "$INSTDIR\tamblewick.dll"'
    ${EndIf}
!macroend

Function ApplyMenuChoice
    ${If} $Menu = ${BST_CHECKED}
        ClearErrors
        ExecWait '"$SYSDIR\regsvr32.exe" /s /n /i:user "$INSTDIR\tamblewick.dll"' $0
        ${If} ${Errors}
        ${OrIf} $0 <> 0
            MessageBox MB_OK|MB_ICONEXCLAMATION "Tamblewick is installed, but could not be added to the menus of folders and drives." /SD IDOK
        ${EndIf}
    ${Else}
        !insertmacro UnregisterForUser
    ${EndIf}
FunctionEnd

; ---- The files: new ones are written beside the old ones as NAME.new. A file that is in use, as the module is by the
; shell, can be renamed but not deleted: it becomes one of NAME.1.old to NAME.9.old until it is free.

!macro DeleteNew name
    Delete "${name}.new"
!macroend

!macro DeleteLeftovers name
    !insertmacro DeleteNew "${name}"
    ${For} $0 1 9
        Delete "${name}.$0.old"
    ${Next}
!macroend

; Puts the first of the nine names that is free or can be freed into $0; nothing if there is none, and a file that is
; renamed to nothing keeps its name.
!macro FindOldName name
    ${For} $0 1 9
        Delete "${name}.$0.old"
        ${IfNot} ${FileExists} "${name}.$0.old"
            ${Break}
        ${EndIf}
    ${Next}
    ${If} $0 > 9
        StrCpy $0 ""
    ${Else}
        StrCpy $0 "${name}.$0.old"
    ${EndIf}
!macroend

!macro ForEachFile operation
    !insertmacro ${operation} "$INSTDIR\tamblewick.exe"
    !insertmacro ${operation} "$INSTDIR\tamblewickc.exe"
    !insertmacro ${operation} "$INSTDIR\tamblewick.dll"
    !insertmacro ${operation} "$INSTDIR\README.txt"
    !insertmacro ${operation} "$INSTDIR\THIRD-PARTY.txt"
    !insertmacro ${operation} "$INSTDIR\uninstall.exe"
!macroend

; ---- Setup: everything or nothing

; The number of renames on the stack, as pairs of old and new name, which are undone if a later step fails.
Var Renames
Var FolderIsNew

!macro Move from to
    ClearErrors
    Rename "${from}" "${to}"
    ${If} ${Errors}
        Call Fail
    ${EndIf}
    Push "${from}"
    Push "${to}"
    IntOp $Renames $Renames + 1
!macroend

!macro Replace name
    ${If} ${FileExists} "${name}"
        !insertmacro FindOldName "${name}"
        !insertmacro Move "${name}" "$0"
    ${EndIf}
    !insertmacro Move "${name}.new" "${name}"
!macroend

Function UndoAll
    ${While} $Renames > 0
        Pop $1
        Pop $0
        Rename "$1" "$0"
        IntOp $Renames $Renames - 1
    ${EndWhile}
    !insertmacro ForEachFile DeleteNew
    !insertmacro DeleteNew "${Shortcut}"
    ${If} $FolderIsNew = 1
        ; The current folder of a process cannot be removed.
        SetOutPath "$TEMP"
        RMDir "$INSTDIR"
    ${EndIf}
FunctionEnd

Function Fail
    Call UndoAll
    MessageBox MB_OK|MB_ICONSTOP "Tamblewick could not be installed into $INSTDIR. Nothing has been changed." /SD IDOK
    Abort
FunctionEnd

; A file that cannot be written ends the setup without coming back to the section.
Function .onInstFailed
    Call UndoAll
FunctionEnd

Section
    Call FindFolder
    ${If} $Folder == ""
        Call Fail
    ${EndIf}
    StrCpy $INSTDIR $Folder
    ${IfNot} ${FileExists} "$INSTDIR\*.*"
        StrCpy $FolderIsNew 1
    ${EndIf}

    ClearErrors
    SetOutPath "$INSTDIR"
    ; Failures set the error flag and ask nothing.
    SetOverwrite try
    File "/oname=tamblewick.exe.new" "${FILES}\tamblewick.exe"
    File "/oname=tamblewickc.exe.new" "${FILES}\tamblewickc.exe"
    File "/oname=tamblewick.dll.new" "${FILES}\tamblewick.dll"
    File "/oname=README.txt.new" "${FILES}\README.txt"
    File "/oname=THIRD-PARTY.txt.new" "${FILES}\THIRD-PARTY.txt"
    WriteUninstaller "$INSTDIR\uninstall.exe.new"
    ${If} ${Errors}
        Call Fail
    ${EndIf}
    !insertmacro ForEachFile Replace
    ; Its target must be there when it is made.
    CreateShortcut "${Shortcut}.new" "$INSTDIR\tamblewick.exe"
    ${If} ${Errors}
        Call Fail
    ${EndIf}
    !insertmacro Replace "${Shortcut}"

    WriteRegStr HKCU "${UninstallKey}" "DisplayName" "Tamblewick"
    WriteRegStr HKCU "${UninstallKey}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UninstallKey}" "Publisher" "Ostrel Vane"
    WriteRegStr HKCU "${UninstallKey}" "DisplayIcon" "$INSTDIR\tamblewick.exe"
    WriteRegStr HKCU "${UninstallKey}" "URLInfoAbout" "https://www.tamblewick.example/"
    WriteRegStr HKCU "${UninstallKey}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UninstallKey}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UninstallKey}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UninstallKey}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UninstallKey}" "NoModify" 1
    WriteRegDWORD HKCU "${UninstallKey}" "NoRepair" 1
    ; A removal that waits for the next sign-in must not take the new files.
    DeleteRegValue HKCU "${RunOnceKey}" "$INSTDIR\uninstall.exe"

    !insertmacro ForEachFile DeleteLeftovers
    !insertmacro DeleteLeftovers "${Shortcut}"

    Call ApplyMenuChoice
SectionEnd

; ---- Removal

; A registration for all users was made with administrator rights, so its removal asks for them as well.
; Another installation's registration stays.
!macro Unregister
    !insertmacro UnregisterForUser
    ReadRegStr $0 HKLM "Software\Classes\${ClassKey}\InProcServer32" ""
    ${If} $0 == "$INSTDIR\tamblewick.dll"
    ${AndIf} ${FileExists} "$INSTDIR\tamblewick.dll"
        ExecShellWait "runas" "$SYSDIR\regsvr32.exe" '/s /u "$INSTDIR\tamblewick.dll"'
    ${EndIf}
!macroend

; Sets the error flag if something stays because it is in use.
!macro Remove name
    Delete "${name}"
    ${If} ${FileExists} "${name}"
        !insertmacro FindOldName "${name}"
        Rename "${name}" "$0"
    ${EndIf}
    !insertmacro DeleteLeftovers "${name}"
!macroend

Section Uninstall
    SetOutPath "$TEMP"
    !insertmacro Unregister

    ClearErrors
    !insertmacro Remove "$INSTDIR\tamblewick.exe"
    !insertmacro Remove "$INSTDIR\tamblewickc.exe"
    !insertmacro Remove "$INSTDIR\tamblewick.dll"
    !insertmacro Remove "$INSTDIR\README.txt"
    !insertmacro Remove "$INSTDIR\THIRD-PARTY.txt"
    !insertmacro DeleteLeftovers "$INSTDIR\uninstall.exe"
    IfErrors inUse
    Delete "$INSTDIR\uninstall.exe"
    IfErrors inUse
    ; Stays if it holds files of others.
    RMDir "$INSTDIR"
    DeleteRegValue HKCU "${RunOnceKey}" "$INSTDIR\uninstall.exe"
    Goto removed
inUse:
    ; To have Windows delete a file at its start takes administrator rights, to be run once at the next sign-in does not.
    WriteRegStr HKCU "${RunOnceKey}" "$INSTDIR\uninstall.exe" '"$INSTDIR\uninstall.exe" /S'
    SetErrorLevel ${ERROR_SUCCESS_REBOOT_REQUIRED}
    MessageBox MB_OK|MB_ICONINFORMATION "Some files of Tamblewick are still in use. They will be removed when you sign in to Windows the next time." /SD IDOK
removed:
    ; Both may belong to an installation in another folder.
    ReadRegStr $0 HKCU "${UninstallKey}" "InstallLocation"
    ${If} $0 != ""
    ${AndIfNot} ${FileExists} "$0\tamblewick.exe"
        Delete "${Shortcut}"
        DeleteRegKey HKCU "${UninstallKey}"
    ${EndIf}

    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/PRESETS" $1
    ${IfNot} ${Errors}
        DeleteRegKey HKCU "${SettingsKey}"
    ${Else}
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Remove your presets as well?" /SD IDNO IDNO keep
        DeleteRegKey HKCU "${SettingsKey}"
        keep:
    ${EndIf}
SectionEnd
