; The installer of Tar Vex Manager for one user of a 64-bit Windows, who need not be an administrator.
; scripts/windows gives VERSION, FILES (the folder of what is installed), OUTPUT, and two lists made of that
; folder: INSTALL puts its files in place, REMOVE takes away these files and no other.
Target amd64-unicode

SetCompressor /SOLID lzma
Name "Tar Vex Manager"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Tar Vex Manager"
InstallDirRegKey HKCU "Software\Tar Vex Manager" "Folder"
Icon "${ICON}"
UninstallIcon "${ICON}"
ManifestDPIAware true
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Tar Vex Manager"
VIAddVersionKey "FileDescription" "Installs Tar Vex Manager ${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "The Tar Vex Manager authors, MIT licence"

!define REGISTERED "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tar Vex Manager"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Section
    !include "${INSTALL}"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "Software\Tar Vex Manager" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${REGISTERED}" "DisplayName" "Tar Vex Manager"
    WriteRegStr HKCU "${REGISTERED}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${REGISTERED}" "DisplayIcon" "$INSTDIR\tarvex-manager.exe"
    WriteRegStr HKCU "${REGISTERED}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${REGISTERED}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${REGISTERED}" "NoModify" 1
    WriteRegDWORD HKCU "${REGISTERED}" "NoRepair" 1
    ; The program works where it starts: among the technician's documents, not beside its own files.
    CreateDirectory "$DOCUMENTS\Tar Vex"
    SetOutPath "$DOCUMENTS\Tar Vex"
    CreateShortcut "$SMPROGRAMS\Tar Vex Manager.lnk" "$INSTDIR\tarvex-manager.exe"
SectionEnd

Section "Uninstall"
    Delete "$SMPROGRAMS\Tar Vex Manager.lnk"
    !include "${REMOVE}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR" ; goes only when nothing else is in it
    RMDir "$DOCUMENTS\Tar Vex"
    DeleteRegKey HKCU "${REGISTERED}"
    DeleteRegKey HKCU "Software\Tar Vex Manager"
SectionEnd
