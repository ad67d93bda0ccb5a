@echo off
rem A console with the program on its path, in the user's documents.
title Sand casting rules
set "PATH=%~dp0;%PATH%"
cd /d "%USERPROFILE%\Documents"
mfxhost --version
echo mfxhost help tells the commands.
