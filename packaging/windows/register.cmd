@echo off
rem Registers the plug-in for the programs of both kinds, 64-bit and 32-bit; with /u takes it out
rem again. Run as administrator it is there for all users, otherwise for the one who runs it.
setlocal
set "failed=0"
set "folder=%~dp0"
set "system=%SystemRoot%\System32"
if "%PROCESSOR_ARCHITECTURE%%PROCESSOR_ARCHITEW6432%"=="x86" goto only32

rem A 32-bit command interpreter sees the 64-bit programs under another name.
set "tool=%system%\regsvr32.exe"
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set "tool=%SystemRoot%\Sysnative\regsvr32.exe"
set "kind=64-bit"
set "module=%folder%x64\kvrnstep.dll"
call :register %1
set "system=%SystemRoot%\SysWOW64"
if not exist "%system%\regsvr32.exe" goto told

:only32
set "tool=%system%\regsvr32.exe"
set "kind=32-bit"
set "module=%folder%x86\kvrnstep.dll"
call :register %1

:told
if %failed%==1 (echo It did not work.) else (echo Done.)
if %failed%==1 if "%PROCESSOR_ARCHITECTURE%"=="ARM64" echo This is Windows for ARM64: see docs\windows.md.
rem Explorer calls with the full name and a blank behind it, and closes the window at once.
setlocal EnableDelayedExpansion
set "line=!cmdcmdline:"=!"
set "behind=!line:*%~f0 =!"
if not defined behind pause
exit /b %failed%

:register
"%tool%" /s %1 "%module%"
set "result=%errorlevel%"
if "%result%"=="0" echo The %kind% plug-in: done.
if not "%result%"=="0" echo The %kind% plug-in: regsvr32 failed with %result%.
if not "%result%"=="0" set "failed=1"
exit /b 0
