; Registration of the module, the simulated camera and the type library.

!define MODULE_KEY "CLSID\${MODULE_CLASS}\InprocServer32"
!define CAMERA_KEY "CLSID\${CAMERA_CLASS}\InprocServer32"
!define LIBRARY_KEY "TypeLib\${LIBRARY}\${LIBRARY_MAJOR}.${LIBRARY_MINOR}\0\win64"

; What was registered before, by path; empty: nothing.
Var OldModule
Var OldCamera
Var OldLibrary
; What has been begun, and so must be undone.
Var ModuleBegun
Var CameraBegun
Var LibraryBegun

; Registers a COM library and looks whether the registry now names exactly this file: the module writes its path in the
; system's code page, which may lack a character. Result in $0: 0, or what failed.
!macro KOLM_REGISTER path key
    ClearErrors
    ExecWait '"$SYSDIR\regsvr32.exe" /s "${path}"' $0
    ${If} ${Errors}
        StrCpy $0 "regsvr32.exe does not start"
    ${ElseIf} $0 = 0
        ReadRegStr $1 HKCR "${key}" ""
        ${If} $1 != "${path}"
            StrCpy $0 "its path is stored as $\"$1$\""
        ${EndIf}
    ${Else}
        StrCpy $0 "regsvr32.exe answers $0"
    ${EndIf}
    ClearErrors
!macroend

!macro KOLM_UNREGISTER path
    ExecWait '"$SYSDIR\regsvr32.exe" /s /u "${path}"' $0
    ClearErrors
!macroend

; Result in $0: 0 or an HRESULT.
!macro KOLM_REGISTER_LIBRARY path
    System::Call 'oleaut32::LoadTypeLibEx(w "${path}", i 2, *p .r1) i .r0' ; REGKIND_NONE
    ${If} $0 = 0
        System::Call 'oleaut32::RegisterTypeLib(p r1, w "${path}", p 0) i .r0'
        System::Call '$1->2()' ; Release
    ${EndIf}
!macroend

!macro KOLM_UNREGISTER_LIBRARY
    System::Call 'oleaut32::UnRegisterTypeLib(g "${LIBRARY}", i ${LIBRARY_MAJOR}, i ${LIBRARY_MINOR}, i 0, i 3) i .r0'
!macroend

Function NoteRegistration
    ReadRegStr $OldModule HKCR "${MODULE_KEY}" ""
    ReadRegStr $OldCamera HKCR "${CAMERA_KEY}" ""
    ReadRegStr $OldLibrary HKCR "${LIBRARY_KEY}" ""
    ClearErrors
FunctionEnd

; While the new files are still there.
Function UndoRegistration
    ${If} $LibraryBegun = 1
        !insertmacro KOLM_UNREGISTER_LIBRARY
    ${EndIf}
    ${If} $CameraBegun = 1
        !insertmacro KOLM_UNREGISTER "$INSTDIR\simulator\kolmsimcam.ax"
    ${EndIf}
    ${If} $ModuleBegun = 1
        !insertmacro KOLM_UNREGISTER "$INSTDIR\kolmfluxor.dll"
    ${EndIf}
FunctionEnd

; When the old files are back.
Function RestoreRegistration
    ${If} $ModuleBegun = 1
    ${AndIf} ${FileExists} "$OldModule"
        !insertmacro KOLM_REGISTER "$OldModule" "${MODULE_KEY}"
    ${EndIf}
    ${If} $CameraBegun = 1
    ${AndIf} ${FileExists} "$OldCamera"
        !insertmacro KOLM_REGISTER "$OldCamera" "${CAMERA_KEY}"
    ${EndIf}
    ${If} $LibraryBegun = 1
    ${AndIf} ${FileExists} "$OldLibrary"
        !insertmacro KOLM_REGISTER_LIBRARY "$OldLibrary"
    ${EndIf}
FunctionEnd

; Of the uninstaller: keys that name another copy's files are that copy's.
Function un.Unregister
    ReadRegStr $1 HKCR "${LIBRARY_KEY}" ""
    ${If} $1 == "$INSTDIR\kolmfluxor.tlb"
        !insertmacro KOLM_UNREGISTER_LIBRARY
    ${EndIf}
    ReadRegStr $1 HKCR "${CAMERA_KEY}" ""
    ${If} $1 == "$INSTDIR\simulator\kolmsimcam.ax"
        !insertmacro KOLM_UNREGISTER "$INSTDIR\simulator\kolmsimcam.ax"
    ${EndIf}
    ReadRegStr $1 HKCR "${MODULE_KEY}" ""
    ${If} $1 == "$INSTDIR\kolmfluxor.dll"
        !insertmacro KOLM_UNREGISTER "$INSTDIR\kolmfluxor.dll"
    ${EndIf}
    ClearErrors
FunctionEnd
