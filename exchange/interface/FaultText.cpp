#include "FaultText.h"

#include "ModuleText.h"

CString LoadFaultText(WorkbookFault fault) {
    return LoadModuleText(static_cast<UINT>(fault));
}
