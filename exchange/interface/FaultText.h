#pragma once

#include "WorkbookTable.h"

// The text of a fault that has one (HasText), in the user's language or else in the default language. It is
// loaded from the resource libraries themselves, so the module is not needed.
CString LoadFaultText(WorkbookFault fault);
