; The installer of KolmFluxor: for all users of a 64-bit Windows. make_package.py compiles it and gives the defines.
;
;   /S           silent          /D=C:\folder   where to (last on the line, without quotation marks)
;   /SIMULATOR   with the simulated camera      /NOSIMULATOR   without; default: as it was, at first without

!define EXIT_NO_ADMINISTRATOR 3
!define EXIT_FILES 4
!define EXIT_MODULE 5
!define EXIT_CAMERA 6
!define EXIT_LIBRARY 7
!define EXIT_RUNNING 8
!define EXIT_OLD_VERSION 9
!define EXIT_RESTART 3010 ; Windows' own number for success that a restart completes

!define NAME "KolmFluxor"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off ; the same files make the same installer
SetOverwrite try ; failures are counted, nobody is asked
AllowSkipFiles off
RequestExecutionLevel admin
ManifestDPIAware true
Name "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\${NAME}"
BrandingText "${NAME} ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1033 "FileDescription" "${NAME} setup"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "CompanyName" "The ${NAME} developers"
VIAddVersionKey /LANG=1033 "LegalCopyright" "MIT license"

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "Sections.nsh"
!include "TextFunc.nsh"

Var FileErrors ; 1 when a file could not be written or moved
Var OldFolder  ; of the installed version, or empty

!include "transaction.nsh"
!insertmacro KOLM_DEFINE_FILE_FUNCTIONS ""
!insertmacro KOLM_DEFINE_FILE_FUNCTIONS "un."
!include "registration.nsh"
!include "${FILES}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Ends before anything was changed.
!macro KOLM_REFUSE code text
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel ${code}
    Quit
!macroend

!macro KOLM_DEMAND_ADMINISTRATOR
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
        !insertmacro KOLM_REFUSE ${EXIT_NO_ADMINISTRATOR} "${NAME} is set up for all users: run this as administrator."
    ${EndIf}
!macroend

; -- Sections

; Undoes everything and ends.
!macro KOLM_FAIL code text
    Call UndoRegistration
    Call UndoFiles
    Call RestoreRegistration
    MessageBox MB_OK|MB_ICONSTOP "${text}$\n$\nEverything is as it was before." /SD IDOK
    SetErrorLevel ${code}
    Abort "${text}"
!macroend

Section "-begin"
    SetShellVarContext all
    Call NoteRegistration
    ; Another folder than before: that version goes first.
    ${If} $OldFolder != ""
    ${AndIf} $OldFolder != $INSTDIR
        ExecWait '"$OldFolder\uninstall.exe" /S _?=$OldFolder' $0
        ${If} $0 != 0
        ${AndIf} $0 != ${EXIT_RESTART}
            SetErrorLevel ${EXIT_OLD_VERSION}
            MessageBox MB_OK|MB_ICONSTOP "The version in $OldFolder could not be removed." /SD IDOK
            Abort
        ${EndIf}
        Delete "$OldFolder\uninstall.exe" ; it cannot delete itself while it runs in its place
        RMDir "$OldFolder"
        StrCpy $OldFolder ""
    ${EndIf}
    Call BeginFiles
SectionEnd

Section "${NAME}" SectionMain
    SectionIn RO
    !insertmacro KOLM_FILES_MAIN
SectionEnd

Section /o "Simulated camera" SectionSimulator
    !insertmacro KOLM_FILES_SIMULATOR
SectionEnd

Section "-end"
    SetOutPath "$INSTDIR"
    ClearErrors
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        StrCpy $FileErrors 1
    ${EndIf}
    Call KeepFiles
    ${If} $FileErrors <> 0
        !insertmacro KOLM_FAIL ${EXIT_FILES} "Files could not be written to $INSTDIR."
    ${EndIf}

    ; A simulated camera that does not come along goes first: its file is gone already.
    ${IfNot} ${SectionIsSelected} ${SectionSimulator}
    ${AndIf} $OldCamera == "$INSTDIR\simulator\kolmsimcam.ax"
        StrCpy $CameraBegun 1
        !insertmacro KOLM_UNREGISTER "$INSTDIR\${BACKUP}\simulator\kolmsimcam.ax"
    ${EndIf}

    StrCpy $ModuleBegun 1
    !insertmacro KOLM_REGISTER "$INSTDIR\kolmfluxor.dll" "${MODULE_KEY}"
    ${If} $0 != 0
        !insertmacro KOLM_FAIL ${EXIT_MODULE} "kolmfluxor.dll could not be registered: $0."
    ${EndIf}
    ${If} ${SectionIsSelected} ${SectionSimulator}
        StrCpy $CameraBegun 1
        !insertmacro KOLM_REGISTER "$INSTDIR\simulator\kolmsimcam.ax" "${CAMERA_KEY}"
        ${If} $0 != 0
            !insertmacro KOLM_FAIL ${EXIT_CAMERA} "The simulated camera could not be registered: $0."
        ${EndIf}
    ${EndIf}
    StrCpy $LibraryBegun 1
    !insertmacro KOLM_REGISTER_LIBRARY "$INSTDIR\kolmfluxor.tlb"
    ${If} $0 <> 0
        IntFmt $0 "0x%08X" $0
        !insertmacro KOLM_FAIL ${EXIT_LIBRARY} "The type library could not be registered: $0."
    ${EndIf}

    ; Nothing below fails the installation.
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "The ${NAME} developers"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\uninstall.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1

    CreateDirectory "$SMPROGRAMS\${NAME}"
    !ifdef VIEWER
        CreateShortCut "$SMPROGRAMS\${NAME}\${NAME} viewer.lnk" "$INSTDIR\${VIEWER}"
    !endif
    CreateShortCut "$SMPROGRAMS\${NAME}\${NAME} command line.lnk" "$SYSDIR\cmd.exe" '/k kolmctl.exe --help'
    CreateShortCut "$SMPROGRAMS\${NAME}\Read me.lnk" "$INSTDIR\README.md"
    CreateShortCut "$SMPROGRAMS\${NAME}\Uninstall ${NAME}.lnk" "$INSTDIR\uninstall.exe"

    RMDir /r /REBOOTOK "$INSTDIR\${BACKUP}"
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
    ${If} ${RebootFlag}
        SetErrorLevel ${EXIT_RESTART}
    ${EndIf}
SectionEnd

LangString DescriptionMain 1033 "The module with its property pages, the programs, headers, type library and documents."
LangString DescriptionSimulator 1033 "Two video input devices for trying everything without a camera."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionMain} $(DescriptionMain)
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionSimulator} $(DescriptionSimulator)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    SetRegView 64
    SetShellVarContext all
    !insertmacro KOLM_DEMAND_ADMINISTRATOR
    System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Global\${NAME} setup") p .r1 ?e'
    Pop $0
    ${If} $0 = 183 ; ERROR_ALREADY_EXISTS
        !insertmacro KOLM_REFUSE ${EXIT_RUNNING} "Another setup of ${NAME} is running."
    ${EndIf}
    StrCpy $ModuleBegun 0
    StrCpy $CameraBegun 0
    StrCpy $LibraryBegun 0

    ; An installed version keeps its place and its components unless told otherwise.
    ReadRegStr $OldFolder HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${IfNot} ${FileExists} "$OldFolder\${LIST}"
        StrCpy $OldFolder ""
    ${EndIf}
    ${If} $OldFolder != ""
        ${If} $INSTDIR == "$PROGRAMFILES64\${NAME}"
            StrCpy $INSTDIR $OldFolder
        ${EndIf}
        ${If} ${FileExists} "$OldFolder\simulator\kolmsimcam.ax"
            !insertmacro SelectSection ${SectionSimulator}
        ${EndIf}
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/SIMULATOR" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionSimulator}
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/NOSIMULATOR" $1
    ${IfNot} ${Errors}
        !insertmacro UnselectSection ${SectionSimulator}
    ${EndIf}
    ClearErrors
FunctionEnd

; -- Uninstaller

Function un.onInit
    SetRegView 64
    SetShellVarContext all
    !insertmacro KOLM_DEMAND_ADMINISTRATOR
    ${IfNot} ${FileExists} "$INSTDIR\${LIST}"
        !insertmacro KOLM_REFUSE ${EXIT_FILES} "$INSTDIR\${LIST} is not there: nothing tells what was installed."
    ${EndIf}
FunctionEnd

Section "Uninstall"
    Call un.Unregister

    Delete "$SMPROGRAMS\${NAME}\${NAME} viewer.lnk"
    Delete "$SMPROGRAMS\${NAME}\${NAME} command line.lnk"
    Delete "$SMPROGRAMS\${NAME}\Read me.lnk"
    Delete "$SMPROGRAMS\${NAME}\Uninstall ${NAME}.lnk"
    RMDir "$SMPROGRAMS\${NAME}"
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        DeleteRegKey HKLM "${UNINSTALL_KEY}"
    ${EndIf}

    ; Files that are not in the list are the user's, and stay with their folders.
    SetOutPath "$TEMP"
    Push "$INSTDIR\${LIST}"
    Call un.DeleteListed
    Delete "$INSTDIR\${LIST}"
    Delete "$INSTDIR\uninstall.exe" ; fails where it runs in its place (_?=); who started it so deletes it
    RMDir "$INSTDIR"
    ${If} ${RebootFlag}
        SetErrorLevel ${EXIT_RESTART}
    ${EndIf}
SectionEnd
