#pragma once

// From here on a crash of the program prints the exception and a back trace (module and offset per frame) to
// standard error and ends the program with kCrashExitCode, on every system: without it some report success.
void InstallCrashReport();

inline constexpr int kCrashExitCode = 70;
