@echo off
rem Registers the plug-in for the programs of both kinds, 64-bit and 32-bit; with /u takes it out
rem again. Run as administrator it is there for all users, otherwise for the one who runs it.
setlocal
set failed=0
set folder=%~dp0
set system64=%SystemRoot%\System32
set system32=%SystemRoot%\SysWOW64
if not exist "%system32%\regsvr32.exe" (
  "%system64%\regsvr32.exe" /s %1 "%folder%x86\kvrnstep.dll" || set failed=1
  goto told
)
"%system64%\regsvr32.exe" /s %1 "%folder%x64\kvrnstep.dll" || set failed=1
"%system32%\regsvr32.exe" /s %1 "%folder%x86\kvrnstep.dll" || set failed=1
:told
if %failed%==1 (echo It did not work.) else (echo Done.)
exit /b %failed%
