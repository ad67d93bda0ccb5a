@echo off
rem A console with the program on its path, in the user's documents. The current folder is no place for programs.
title Sand casting rules
set "PATH=%~dp0;%PATH%"
set NoDefaultCurrentDirectoryInExePath=1
cd /d "%USERPROFILE%\Documents" 2>nul || cd /d "%USERPROFILE%"
"%~dp0mfxhost.exe" --version
echo mfxhost help tells the commands.
