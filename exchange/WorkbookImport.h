// The import of workbooks for dialogs: the functions of WorkbookPath.h and WorkbookReader.h with texts in the
// user's language. The text is empty where a fault has none. No exception leaves.
#pragma once

#include "NoThrow.h"
#include "SandCastingRulesApp.h"
#include "WorkbookPath.h"
#include "WorkbookReader.h"

template <class Step>
bool RunImportStep(CString& strError, Step&& findFault) {
    bool bDone = false;
    strError.Empty();
    NoThrow([&] {
        const WorkbookFault fault = findFault();
        bDone = fault == WorkbookFault::None;
        if (HasText(fault)) strError = LoadLocalizedString(static_cast<UINT>(fault));
    });
    return bDone;
}

inline bool CheckWorkbookPath(const CString& strPath, CString& strError) {
    return RunImportStep(strError, [&] { return FindPathFault(strPath); });
}

inline bool ReadWorkbookTable(const CString& strPath, const WorkbookColumns& columns, WorkbookTable& table,
                              CString& strError) {
    return RunImportStep(strError, [&] { return ReadWorkbook(strPath, columns, table, strError); });
}
