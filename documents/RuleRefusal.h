#pragma once

#include "MfxRule.h"

#include <afx.h>

// What the rule's dialog would refuse to store, in its words and the user's language; empty when it would
// store everything.
CString FindRefusal(const CMfxRule& rule);
