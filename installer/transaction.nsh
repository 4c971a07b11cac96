; Files: what stands in the way goes aside first, so that a failed installation can be undone.
;
;   $INSTDIR\setup-backup~   what was there before, only while the installer runs
;   $INSTDIR\uninstall.lst   the installed files, one a line, relative to $INSTDIR; itself and the uninstaller left out
;
; Moving works for files that a running program holds open, where replacing them does not.

!define BACKUP "setup-backup~"
!define LIST "uninstall.lst"

Var NewFiles ; handle of the list in the making, which stands in $PLUGINSDIR
Var NewList  ; its path
Var AsideList

; Deletes a file; one that is in use goes when Windows starts next, under another name, so that this name is free.
!macro KOLM_DELETE path
    ClearErrors
    Delete "${path}"
    ${If} ${Errors}
        System::Call 'kernel32::GetTickCount() i .r9'
        ClearErrors
        Rename "${path}" "${path}.$9~"
        ${If} ${Errors}
            Delete /REBOOTOK "${path}"
        ${Else}
            Delete /REBOOTOK "${path}.$9~"
        ${EndIf}
    ${EndIf}
!macroend

!macro KOLM_DEFINE_FILE_FUNCTIONS un
    ; Stack: a path below $INSTDIR. Removes its folders up to $INSTDIR as far as they are empty.
    Function ${un}RemoveEmptyFolders
        Exch $0
        Push $1
        ${Do}
            ${GetParent} "$0" $0
            StrLen $1 "$INSTDIR"
            StrCpy $1 "$0" $1
            ${If} $1 != $INSTDIR
            ${OrIf} $0 == $INSTDIR
                ${ExitDo}
            ${EndIf}
            ClearErrors
            RMDir "$0"
        ${LoopUntil} ${Errors}
        ClearErrors
        Pop $1
        Pop $0
    FunctionEnd

    ; Stack: path of a list. Deletes the files that it names below $INSTDIR, and their folders where nothing is left.
    Function ${un}DeleteListed
        Exch $0
        Push $1
        Push $2
        Push $9
        ClearErrors
        FileOpen $1 "$0" r
        ${IfNot} ${Errors}
            ${Do}
                ClearErrors
                FileReadUTF16LE $1 $2
                ${If} ${Errors}
                    ${ExitDo}
                ${EndIf}
                ${TrimNewLines} "$2" $2
                ${If} $2 != ""
                    !insertmacro KOLM_DELETE "$INSTDIR\$2"
                    Push "$INSTDIR\$2"
                    Call ${un}RemoveEmptyFolders
                ${EndIf}
            ${Loop}
            FileClose $1
        ${EndIf}
        ClearErrors
        Pop $9
        Pop $2
        Pop $1
        Pop $0
    FunctionEnd
!macroend

; Stack: a name relative to $INSTDIR. Moves that file, if there is one, into the backup.
Function MoveAside
    Exch $0
    Push $1
    ${If} ${FileExists} "$INSTDIR\$0"
        ${GetParent} "$INSTDIR\${BACKUP}\$0" $1
        CreateDirectory "$1"
        ClearErrors
        Rename "$INSTDIR\$0" "$INSTDIR\${BACKUP}\$0"
        ${If} ${Errors}
            StrCpy $FileErrors 1
        ${Else}
            FileWriteUTF16LE $AsideList "$0$\r$\n"
        ${EndIf}
    ${EndIf}
    ClearErrors
    Pop $1
    Pop $0
FunctionEnd

Function BeginFiles
    StrCpy $FileErrors 0
    StrCpy $NewList "$PLUGINSDIR\new.lst"
    CreateDirectory "$INSTDIR"
    ; Remains of an installer that was ended in the middle.
    RMDir /r "$INSTDIR\${BACKUP}"
    ClearErrors
    FileOpen $NewFiles "$NewList" w
    FileOpen $AsideList "$PLUGINSDIR\aside.lst" w
    ${If} ${Errors}
        StrCpy $FileErrors 1
        Return
    ${EndIf}

    ; All files of the version that is there, also those that this version no longer has.
    FileOpen $1 "$INSTDIR\${LIST}" r
    ${IfNot} ${Errors}
        ${Do}
            ClearErrors
            FileReadUTF16LE $1 $2
            ${If} ${Errors}
                ${ExitDo}
            ${EndIf}
            ${TrimNewLines} "$2" $2
            ${If} $2 != ""
                Push $2
                Call MoveAside
                Push "$INSTDIR\$2"
                Call RemoveEmptyFolders
            ${EndIf}
        ${Loop}
        FileClose $1
        Push "${LIST}"
        Call MoveAside
        Push "uninstall.exe"
        Call MoveAside
    ${EndIf}
    ClearErrors
FunctionEnd

; The new files stay, the old ones go.
Function KeepFiles
    FileClose $NewFiles
    FileClose $AsideList
    ClearErrors
    CopyFiles /SILENT "$NewList" "$INSTDIR\${LIST}"
    ${If} ${Errors}
        StrCpy $FileErrors 1
    ${EndIf}
FunctionEnd

; The new files go, the old ones come back.
Function UndoFiles
    FileClose $NewFiles
    FileClose $AsideList
    SetOutPath "$TEMP" ; no folder that is to go may be the current one
    Push "$NewList"
    Call DeleteListed
    Delete "$INSTDIR\uninstall.exe"
    Delete "$INSTDIR\${LIST}"
    ClearErrors
    FileOpen $1 "$PLUGINSDIR\aside.lst" r
    ${IfNot} ${Errors}
        ${Do}
            ClearErrors
            FileReadUTF16LE $1 $2
            ${If} ${Errors}
                ${ExitDo}
            ${EndIf}
            ${TrimNewLines} "$2" $2
            ${GetParent} "$INSTDIR\$2" $3
            CreateDirectory "$3"
            Rename "$INSTDIR\${BACKUP}\$2" "$INSTDIR\$2"
        ${Loop}
        FileClose $1
    ${EndIf}
    RMDir /r "$INSTDIR\${BACKUP}"
    RMDir "$INSTDIR"
    ClearErrors
FunctionEnd

; One file of the package. List it first: what is written half must go as well.
!macro KOLM_FILE source folder name
    Push "${name}"
    Call MoveAside
    FileWriteUTF16LE $NewFiles "${name}$\r$\n"
    SetOutPath "${folder}"
    ClearErrors
    File "${source}"
    ${If} ${Errors}
        StrCpy $FileErrors 1
    ${EndIf}
!macroend
