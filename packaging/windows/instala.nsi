; The installer, for one user and without an administrator: makensis -DVERSAO=... -DPASTA=... -DARQUIVOS=... -DSAIDA=...
; ARQUIVOS are the lists that monta.sh writes of the folder PASTA: Programas, Iniciais, RemoveProgramas, RemoveLotes.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include "${ARQUIVOS}"

!define CHAVE "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvelo"

Name "Tarvelo"
OutFile "${SAIDA}"
InstallDir "$LOCALAPPDATA\Programs\Tarvelo"
InstallDirRegKey HKCU "${CHAVE}" InstallLocation
BrandingText "Tarvelo ${VERSAO}"
VIProductVersion "${VERSAO}.0"
VIAddVersionKey /LANG=1046 ProductName "Tarvelo"
VIAddVersionKey /LANG=1046 ProductVersion "${VERSAO}"
VIAddVersionKey /LANG=1046 FileDescription "Instalador do Tarvelo"
VIAddVersionKey /LANG=1046 FileVersion "${VERSAO}"
VIAddVersionKey /LANG=1046 CompanyName "Tarvelo"
VIAddVersionKey /LANG=1046 LegalCopyright "© 2026 the Tarvelo maintainers"

!define MUI_ICON "${ICONE}"
!define MUI_UNICON "${ICONE}"
!define MUI_DIRECTORYPAGE_TEXT_TOP "O Tarvelo será instalado nesta pasta, e nela ficam também os dados da oficina. \
    Se ele já está nela, o programa é atualizado e os dados ficam como estão."
!define MUI_FINISHPAGE_RUN "$INSTDIR\tarvelo.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Abrir o Tarvelo"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "O Tarvelo será removido desta pasta. Os dados da oficina ficam nela: o banco de dados, as \
    figuras, as configurações, os CEPs e o que foi impresso."
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE PortugueseBR

; Ends with status 2, told in a box where somebody sees it.
!macro Recusa TEXTO
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXTO}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend

; A program that runs can't be opened for writing.
!macro RecusaAberto PROGRAMA
  ${If} ${FileExists} "$INSTDIR\${PROGRAMA}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${PROGRAMA}" a
    ${If} ${Errors}
      !insertmacro Recusa "O ${PROGRAMA} desta pasta está aberto ou é de outro usuário. Feche-o e tente de novo. Nada foi mudado."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro RecusaAbertos
  !insertmacro RecusaAberto tarvelo.exe
  !insertmacro RecusaAberto tarvelo-copia.exe
  !insertmacro RecusaAberto tarvelo-confere.exe
  !insertmacro RecusaAberto tarvelo-importa.exe
  !insertmacro RecusaAberto cep.exe
!macroend

Function .onInit
  ${IfNot} ${AtLeastBuild} 17763
    !insertmacro Recusa "O Tarvelo precisa do Windows 10 (1809) ou de um mais novo."
  ${EndIf}
FunctionEnd

Section
  !insertmacro RecusaAbertos
  SetOverwrite on
  SetOutPath "$INSTDIR"
  ClearErrors
  FileOpen $0 "$INSTDIR\desinstala.exe" a
  ${If} ${Errors}
    !insertmacro Recusa "Seu usuário não pode gravar na pasta $INSTDIR. Escolha outra."
  ${EndIf}
  FileClose $0

  !insertmacro Programas
  SetOverwrite off ; what is there already is the user's own by now
  !insertmacro Iniciais
  SetOverwrite on
  WriteUninstaller "$INSTDIR\desinstala.exe"
  ${If} ${Errors}
    !insertmacro Recusa "Nem todos os arquivos puderam ser gravados na pasta $INSTDIR. Veja se o disco está cheio e instale de novo."
  ${EndIf}

  SetOutPath "$INSTDIR" ; where the shortcut starts the program
  CreateShortcut "$SMPROGRAMS\Tarvelo.lnk" "$INSTDIR\tarvelo.exe"
  WriteRegStr HKCU "${CHAVE}" DisplayName "Tarvelo"
  WriteRegStr HKCU "${CHAVE}" DisplayVersion "${VERSAO}"
  WriteRegStr HKCU "${CHAVE}" DisplayIcon "$INSTDIR\tarvelo.exe"
  WriteRegStr HKCU "${CHAVE}" Publisher "Tarvelo"
  WriteRegStr HKCU "${CHAVE}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${CHAVE}" UninstallString '"$INSTDIR\desinstala.exe"'
  WriteRegStr HKCU "${CHAVE}" QuietUninstallString '"$INSTDIR\desinstala.exe" /S'
  WriteRegDWORD HKCU "${CHAVE}" EstimatedSize ${TAMANHO}
  WriteRegDWORD HKCU "${CHAVE}" NoModify 1
  WriteRegDWORD HKCU "${CHAVE}" NoRepair 1
SectionEnd

; $0 and $1 are two files: $2 becomes 1 where they are the same to the last byte.
Function un.Compara
  StrCpy $2 0
  ClearErrors
  FileOpen $3 $0 r
  FileOpen $4 $1 r
  ${IfNot} ${Errors}
    ${Do}
      FileReadByte $3 $5 ; "" behind the end
      FileReadByte $4 $6
      ${If} $5 != $6
        ${ExitDo}
      ${EndIf}
      ${If} $5 == ""
        StrCpy $2 1
        ${ExitDo}
      ${EndIf}
    ${Loop}
  ${EndIf}
  FileClose $3
  FileClose $4
FunctionEnd

; A batch file as it was laid goes; one that the user has changed stays.
!macro RemoveLote NOME
  File "/oname=$PLUGINSDIR\${NOME}" "${PASTA}/${NOME}"
  StrCpy $0 "$PLUGINSDIR\${NOME}"
  StrCpy $1 "$INSTDIR\${NOME}"
  Call un.Compara
  ${If} $2 = 1
    Delete "$INSTDIR\${NOME}"
  ${EndIf}
!macroend

Section Uninstall
  !insertmacro RecusaAbertos
  InitPluginsDir
  !insertmacro RemoveLotes
  SetOutPath "$TEMP" ; a folder that is somebody's current one can't go
  !insertmacro RemoveProgramas
  Delete "$INSTDIR\desinstala.exe"
  RMDir "$INSTDIR" ; where nothing of the user's stands in it
  Delete "$SMPROGRAMS\Tarvelo.lnk"
  DeleteRegKey HKCU "${CHAVE}"
SectionEnd
