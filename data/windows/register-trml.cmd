@echo off
rem Opens .trml files with the tremlo.exe beside this file, for the user who starts it.
set key=HKCU\Software\Classes
reg add "%key%\.trml" /ve /d Tremlo.Project /f >nul
reg add "%key%\Tremlo.Project" /ve /d "Tremlo project" /f >nul
reg add "%key%\Tremlo.Project\DefaultIcon" /ve /d "\"%~dp0tremlo.exe\",0" /f >nul
reg add "%key%\Tremlo.Project\shell\open\command" /ve /d "\"%~dp0tremlo.exe\" \"%%1\"" /f >nul
if errorlevel 1 (echo Failed.) else (echo .trml files now open with "%~dp0tremlo.exe")
pause
