; The setup for one user: program, handler module and README, without administrator rights.
;
;   makensis -DFILES=folder -DOUTPUT=setup.exe -DVERSION=version -DSIZE=kilobytes setup.nsi
;
; /S runs setup and removal without a window. The removal leaves the presets; /PRESETS takes them too.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include FileFunc.nsh
!include LogicLib.nsh
!include x64.nsh

!define UninstallKey "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tamblewick"
!define SettingsKey "Software\Tamblewick"
!define ClassKey "CLSID\{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}"

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
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; A file that is in use, as the module is by the shell, cannot be overwritten but renamed. What an earlier run has
; renamed goes now, if it is free.
!macro MakeWay name
    Delete "$INSTDIR\${name}.*.old"
    ClearErrors
    Delete "$INSTDIR\${name}"
    ${If} ${Errors}
        StrCpy $0 1
        ${DoWhile} ${FileExists} "$INSTDIR\${name}.$0.old"
            IntOp $0 $0 + 1
        ${Loop}
        Rename "$INSTDIR\${name}" "$INSTDIR\${name}.$0.old"
    ${EndIf}
!macroend

Section
    SetOutPath "$INSTDIR"
    !insertmacro MakeWay "tamblewick.exe"
    !insertmacro MakeWay "tamblewick.dll"
    File "${FILES}\tamblewick.exe"
    File "${FILES}\tamblewick.dll"
    File "${FILES}\README.txt"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Tamblewick.lnk" "$INSTDIR\tamblewick.exe"

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
SectionEnd

; Whoever registered the module for all users did it with elevated rights, so its removal asks for them as well.
; Another installation's registration stays.
!macro Unregister
    SetRegView 64
    ReadRegStr $0 HKCU "Software\Classes\${ClassKey}\InProcServer32" ""
    ${If} $0 == "$INSTDIR\tamblewick.dll"
        ExecWait '"$SYSDIR\regsvr32.exe" /s /u /n /i:user "$INSTDIR\tamblewick.dll"'
    ${EndIf}
    ReadRegStr $0 HKLM "Software\Classes\${ClassKey}\InProcServer32" ""
    ${If} $0 == "$INSTDIR\tamblewick.dll"
        ExecShellWait "runas" "$SYSDIR\regsvr32.exe" '/s /u "$INSTDIR\tamblewick.dll"'
    ${EndIf}
!macroend

Section Uninstall
    ; A folder in which a program still stands cannot be removed.
    SetOutPath "$TEMP"
    !insertmacro Unregister
    Delete "$SMPROGRAMS\Tamblewick.lnk"
    !insertmacro MakeWay "tamblewick.exe"
    !insertmacro MakeWay "tamblewick.dll"
    Delete "$INSTDIR\README.txt"
    Delete "$INSTDIR\uninstall.exe"
    ; What is still in use goes with the next start of Windows.
    Delete /REBOOTOK "$INSTDIR\*.old"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${UninstallKey}"

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
