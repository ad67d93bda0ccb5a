#pragma once

#include <string>

#include "afx.h"

namespace mfx {
// File name of a loaded module (null: the program) without folder and extension.
std::wstring ModuleBaseName(HMODULE module);
}  // namespace mfx
