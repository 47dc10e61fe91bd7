@echo off
rem Shows the form with the example model, beside a stand-in for FEMAP. The stand-in is registered
rem for this user while the form is open; it ends with the form and leaves no registration behind.
setlocal
set "here=%~dp0"
set "work=%TEMP%\velmar-try-it"

if not exist "%work%" mkdir "%work%"
copy /y "%here%panel.neu" "%work%" >nul
if errorlevel 1 goto failed
"%here%femap-standin.exe" /regserver
if errorlevel 1 goto failed

echo The form is open. Close it to end this.
echo "Apply" writes into %work%
start "" /wait "%here%..\VelmarFemapInterface.exe" "%work%\panel.neu$try-it.log$ALWAYS"
set "result=%errorlevel%"
"%here%femap-standin.exe" /unregserver
if not "%result%" == "0" goto ended
if exist "%work%\panelControl.txt" start "" "%work%"
exit /b 0

:ended
echo The form ended with code %result%. Its log: %TEMP%\korva\try-it.log
:failed
echo It could not be shown.
pause
exit /b 1
