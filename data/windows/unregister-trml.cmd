@echo off
rem Takes back what register-trml.cmd has done.
set key=HKCU\Software\Classes
reg delete "%key%\.trml" /f >nul 2>nul
reg delete "%key%\Tremlo.Project" /f >nul 2>nul
echo .trml files no longer open with Tremlo.
pause
