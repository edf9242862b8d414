@echo off
rem Registers the plug-in for the programs of both kinds, 64-bit and 32-bit; with /u takes it out
rem again. Run as administrator it is there for all users, otherwise for the one who runs it.
setlocal
set failed=0
set folder=%~dp0
set system=%SystemRoot%\System32
if "%PROCESSOR_ARCHITECTURE%%PROCESSOR_ARCHITEW6432%"=="x86" goto only32

rem A 32-bit command interpreter sees the 64-bit programs under another name.
set system64=%system%
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set system64=%SystemRoot%\Sysnative
"%system64%\regsvr32.exe" /s %1 "%folder%x64\kvrnstep.dll"
if errorlevel 1 set failed=1
set system=%SystemRoot%\SysWOW64
if not exist "%system%\regsvr32.exe" goto told

:only32
"%system%\regsvr32.exe" /s %1 "%folder%x86\kvrnstep.dll"
if errorlevel 1 set failed=1

:told
if %failed%==1 (echo It did not work.) else (echo Done.)
exit /b %failed%
