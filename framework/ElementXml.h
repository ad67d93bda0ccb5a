#pragma once

#include "MfxXMLNode.h"

#include <string>

// An element and all that is in it as UTF-8, indented by two blanks.
MFXKIT_API std::string ElementToUtf8(const MfxXMLNode& element);
