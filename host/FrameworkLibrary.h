#pragma once

// Loads MfxKitu.dll from the program's folder. The program imports it with delay, so that a missing library
// can be named here instead of keeping the program from starting; nothing of the framework may be used before
// this call. Throws CommandError (NotPossible) that names the file.
void LoadFrameworkLibrary();
