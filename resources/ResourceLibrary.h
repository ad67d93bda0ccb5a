#pragma once

// File name of a language's resource library, in the language's folder.
inline constexpr wchar_t kResourceLibraryFile[] = L"MFXSandCastingRulesResu.dll";
