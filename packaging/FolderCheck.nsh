; Whether the installer may and can write to $INSTDIR. $Reason says why not.

!macro FindForeignFile path
  ${If} $Reason == ""
  ${AndIf} ${FileExists} "$INSTDIR\${path}"
    StrCpy $Reason "$INSTDIR\${path} is there already, and of another program or yours. Choose another folder. Nothing was changed."
  ${EndIf}
!macroend
!macro FindFileForFolder path
  ${IfNot} ${FileExists} "$INSTDIR\${path}\*.*"
    !insertmacro FindForeignFile "${path}"
  ${EndIf}
!macroend
!macro IgnoreSample path source
!macroend

; Whether a file can be written to the folder, with the right to and on a disk that is there.
Function TryToWrite
  ClearErrors
  CreateDirectory $INSTDIR
  FileOpen $R3 "$INSTDIR\${UNINSTALLER}.new" w
  FileClose $R3
  Delete "$INSTDIR\${UNINSTALLER}.new"
  ${If} ${Errors}
    StrCpy $Reason "$INSTDIR can't be written: you have no right to, or its disk is write-protected or not there. Choose another folder, or install as an administrator. Nothing was changed."
  ${EndIf}
FunctionEnd

Function FindRoom
  SectionGetSize 0 $R0
  IntOp $R0 $R0 / 1024
  IntOp $R0 $R0 + 2  ; in MB; files take whole blocks of the disk
  System::Call 'kernel32::GetDiskFreeSpaceExW(w "$INSTDIR", *l .R1, p 0, p 0)'
  System::Int64Op $R1 / 1048576
  Pop $R1
  ${If} $R1 < $R0
    StrCpy $Reason "The disk of $INSTDIR has too little room: $R0 MB are needed. Nothing was changed."
  ${EndIf}
FunctionEnd

; An older version is removed only when the new one can be written. Folders that were made to try go again.
Function TryFolder
  StrCpy $R2 $INSTDIR  ; becomes the nearest folder that is there
  ${Do}
    ${If} ${FileExists} "$R2\*.*"
      ${ExitDo}
    ${EndIf}
    ${GetParent} $R2 $R2
  ${LoopUntil} $R2 == ""
  Call TryToWrite
  ${If} $Reason == ""
    Call FindRoom
  ${EndIf}
  StrCpy $R3 $INSTDIR
  ${DoUntil} $R3 == $R2
    RMDir $R3
    ${GetParent} $R3 $R3
  ${Loop}
FunctionEnd

; Nothing is replaced that was not installed: a CAD system's folder has libraries of the same names.
Function CheckFolder
  StrCpy $Reason ""
  !insertmacro MakeFull $INSTDIR
  ${If} $IsForAll == 1
    StrCpy $R0 $OfAll
    StrCpy $R1 $OfUser
  ${Else}
    StrCpy $R0 $OfUser
    StrCpy $R1 $OfAll
  ${EndIf}
  ${If} $R1 == $INSTDIR
    StrCpy $Reason "$INSTDIR was installed for other users: with /AllUsers for all, without it for one. Nothing was changed."
  ${ElseIf} $R0 != $INSTDIR
    !define EACH_FILE FindForeignFile
    !define EACH_SAMPLE IgnoreSample  ; those are never replaced
    !define EACH_FOLDER FindFileForFolder
    !include "${LIST}"
    !undef EACH_FILE
    !undef EACH_SAMPLE
    !undef EACH_FOLDER
  ${EndIf}
  ${If} $Reason == ""
    Call TryFolder
  ${EndIf}
FunctionEnd
