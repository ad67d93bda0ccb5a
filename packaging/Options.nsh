; What the installer's command line says, and one installer at a time.

; Two at once would leave files of which nothing is registered.
Function TakeLock
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "SandCastingRulesInstaller") p .R0 ?e'
  Pop $R1
  StrCpy $Lock $R0
  ${If} $R1 != 0
    !insertmacro Refuse "Another installer of ${NAME} is running. Nothing was changed."
  ${EndIf}
FunctionEnd

; NSIS itself passes over options that it does not know.
Function ReadOptions
  ${GetParameters} $R0
  StrCpy $R1 1
  ${Do}
    ClearErrors
    ${WordFind} " $R0 " " " "E+$R1" $R2
    ${If} ${Errors}
      ${ExitDo}
    ${ElseIf} $R2 == "/AllUsers"
      StrCpy $IsForAll 1
    ${ElseIf} $R2 S!= "/S"
      !insertmacro Refuse "$R2 is no option; those are /AllUsers, /S and, as the last one, /D=FOLDER without quotation marks. Nothing was changed."
    ${EndIf}
    IntOp $R1 $R1 + 1
  ${Loop}
FunctionEnd

; NSIS takes the usual folder instead of one that it can't use, and drops characters that no name may have.
Function ReadAskedFolder
  System::Call 'kernel32::GetCommandLineW() w .R0'
  ClearErrors
  ${WordFind} $R0 " /D=" "E+1}" $Asked
  ${If} ${Errors}
    StrCpy $Asked ""
    Return
  ${EndIf}
  StrCpy $R0 $Asked
  !insertmacro MakeFull $Asked
  !insertmacro MakeFull $INSTDIR
  ${If} $Asked != $INSTDIR
    !insertmacro Refuse "/D=$R0: this can't be the folder. It has to be a full path on a disk that is there, without quotation marks, and the last option. Nothing was changed."
  ${EndIf}
FunctionEnd
