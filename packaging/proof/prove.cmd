@echo off
rem Runs the tests of this tool on this machine and writes what came of them into one file,
rem proof.txt, beside this one. It changes nothing outside %TEMP% but for a registration of the
rem stand-in for this user, which goes with each test.
rem
rem   prove.cmd [DRIVE: [FILTER]]
rem
rem DRIVE: a letter that shows the folder "root" already. FILTER: which tests, as GoogleTest takes it.
setlocal
set "here=%~dp0"
set "report=%here%proof.txt"
set "drive=%~1"
set "filter=%~2"
set "own="
if not "%drive%" == "" goto mapped

rem The tests look for their files from the top of the drive that they run on.
for %%d in (L M N O P Q R T V W) do if not exist %%d:\ set "drive=%%d:"
if "%drive%" == "" goto noDrive
subst %drive% "%here%root"
if errorlevel 1 goto noDrive
set "own=1"

:mapped
rem No mouse and no keyboard: those tests need a screen of their own.
if "%filter%" == "" set "filter=-*StudyByHand*:Keys.*:LongList*"
>"%report%" echo Proof of the Velmar-Femap Interface
ver >>"%report%"
>>"%report%" echo %DATE% %TIME%
reg query HKCR\femap.model /ve >>"%report%" 2>&1
if not errorlevel 1 >>"%report%" echo A FEMAP is installed here: tests beside the stand-in fail.
%drive%
cd \
set "failed="
set "count=0"
for /f "usebackq delims=" %%t in ("%here%tests.txt") do call :run "%%t"
>>"%report%" echo.
if "%failed%" == "" >>"%report%" echo RESULT: all %count% test programs passed
if not "%failed%" == "" >>"%report%" echo RESULT: FAILED are%failed%
cd /d "%here%"
if "%own%" == "1" subst %drive% /d
echo.
if "%failed%" == "" echo All tests passed.
if not "%failed%" == "" echo These failed:%failed%
echo Please send us the file %report%
if "%own%" == "1" pause
if not "%failed%" == "" exit /b 1
exit /b 0

:run
echo Running %~n1 ...
>>"%report%" echo.
>>"%report%" echo == %~n1
"%~1" --gtest_brief=1 "--gtest_filter=%filter%" >>"%report%" 2>&1
set "code=%errorlevel%"
>>"%report%" echo == %~n1 ended with %code%
set /a count+=1
if not "%code%" == "0" set "failed=%failed% %~n1"
exit /b 0

:noDrive
echo No drive letter is free for the tests' files.
pause
exit /b 1
