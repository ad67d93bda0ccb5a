#pragma once

// Marks what MfxKitu.dll offers to modules and hosts.
#ifdef MFXKIT_BUILD
#define MFXKIT_API __declspec(dllexport)
#else
#define MFXKIT_API __declspec(dllimport)
#endif
