; The installer: for one user, without administrator rights. ./package gives the version, the picture
; and the lists of files. Silent with /S, the uninstaller too.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define NAME "Velmar-Femap Interface"
!define PUBLISHER "The Velmar-Femap Interface developers"
!define PROGRAM "VelmarFemapInterface.exe"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\VelmarFemapInterface"
!define MENU "$SMPROGRAMS\${NAME}"

Name "${NAME}"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\VelmarFemapInterface"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${NAME} Setup"
VIAddVersionKey "LegalCopyright" "${PUBLISHER}"

!include "MUI2.nsh"
!include "FileFunc.nsh"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\guide.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the guide"
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs cannot be written to. Nothing is changed then: either it is closed and tried
; again, or setup ends with the exit code 2, as it does at once when it is silent.
!macro EndWhenRunning FOLDER FILE
    ${Do}
        ${IfNot} ${FileExists} "${FOLDER}\${FILE}"
            ${ExitDo}
        ${EndIf}
        ClearErrors
        FileOpen $R0 "${FOLDER}\${FILE}" a
        ${IfNot} ${Errors}
            FileClose $R0
            ${ExitDo}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
                "${FILE} is running. Close it and try again." /SD IDCANCEL IDCANCEL`
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${Loop}
!macroend

!macro EndWhenAnyRuns FOLDER
    !insertmacro EndWhenRunning "${FOLDER}" "${PROGRAM}"
    !insertmacro EndWhenRunning "${FOLDER}" "velmar-study.exe"
    !insertmacro EndWhenRunning "${FOLDER}" "CAEInput.exe"
    !insertmacro EndWhenRunning "${FOLDER}" "CAEOutput.exe"
    !insertmacro EndWhenRunning "${FOLDER}" "velmar-evaluate.exe"
    !insertmacro EndWhenRunning "${FOLDER}" "try-it\femap-standin.exe"
!macroend

Section
    ; What an older version put there goes first.
    ReadRegStr $R1 HKCU "${ENTRY}" "InstallLocation"
    !insertmacro EndWhenAnyRuns "$INSTDIR"
    ${If} $R1 != ""
    ${AndIf} ${FileExists} "$R1\uninstall.exe"
        ExecWait '"$R1\uninstall.exe" /S /KEEP _?=$R1' $R2
        ${If} $R2 != 0
            MessageBox MB_OK|MB_ICONEXCLAMATION \
                "The version in $R1 could not be taken away. Close it and try again." /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
        Delete "$R1\uninstall.exe"  ; it cannot delete itself when it is waited for
        RMDir "$R1"
    ${EndIf}

    !include "${LISTS}/install.nsh"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    CreateDirectory "${MENU}"
    CreateShortCut "${MENU}\${NAME}.lnk" "$INSTDIR\${PROGRAM}" "$$$$ALWAYS"  ; keeps a log
    CreateShortCut "${MENU}\Guide.lnk" "$INSTDIR\guide.html"
    SetOutPath "$INSTDIR\try-it"
    CreateShortCut "${MENU}\Try it without FEMAP.lnk" "$INSTDIR\try-it\try-it.cmd" "" \
        "$INSTDIR\${PROGRAM}"
    SetOutPath "$INSTDIR"

    ${GetSize} "$INSTDIR" "/S=0K" $R0 $R1 $R2
    WriteRegStr HKCU "${ENTRY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${ENTRY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $R0
    WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Only what was installed goes. A folder that holds something else stays.
Section "Uninstall"
    !insertmacro EndWhenAnyRuns "$INSTDIR"
    ; In case that trying it was broken off.
    nsExec::Exec '"$INSTDIR\try-it\femap-standin.exe" /unregserver'
    Pop $R0
    SetOutPath "$TEMP"  ; a folder that somebody stands in cannot go
    !include "${LISTS}/uninstall.nsh"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "${MENU}\${NAME}.lnk"
    Delete "${MENU}\Guide.lnk"
    Delete "${MENU}\Try it without FEMAP.lnk"
    RMDir "${MENU}"
    DeleteRegKey HKCU "${ENTRY}"
    ; A newer version goes on with what the form keeps. Rows that were not applied are the user's.
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/KEEP" $R1
    ${If} ${Errors}
        Delete "$LOCALAPPDATA\${NAME}\Window.txt"
        Delete "$LOCALAPPDATA\${NAME}\Rows\*.lock"
        RMDir "$LOCALAPPDATA\${NAME}\Rows"
        RMDir "$LOCALAPPDATA\${NAME}"
    ${EndIf}
SectionEnd
