#pragma once

#include "WorkbookTable.h"

// The text of a fault that has one (HasText), in the user's language or else in English; from the resource
// libraries themselves, so it is there without the module.
CString LoadFaultText(WorkbookFault fault);
