// Patches as JSON: docs/diff.schema.json.
#pragma once

#include "Patch.h"

#include <string>

inline constexpr int kPatchVersion = 3;

// With the names of both sides, for who reads it.
std::string FormatPatch(const Patch& patch, const std::string& left, const std::string& right);

// Throws DocumentError (Unreadable) that says what is wrong and where; messages call the patch by the name.
Patch ParsePatch(const std::string& name, const std::string& text);
