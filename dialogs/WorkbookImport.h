// The import of workbooks as dialogs use it: true or false, with the text to show in the user's language. The
// text is empty where a fault has none. No exception leaves.
#pragma once

#include "NoThrow.h"
#include "SandCastingRulesApp.h"
#include "WorkbookPath.h"
#include "WorkbookReader.h"

template <class Step>
bool RunImportStep(CString& error, Step&& findFault) {
    bool done = false;
    error.Empty();
    NoThrow([&] {
        const WorkbookFault fault = findFault();
        done = fault == WorkbookFault::None;
        if (HasText(fault)) error = LoadLocalizedString(static_cast<UINT>(fault));
    });
    return done;
}

inline bool CheckWorkbookPath(const CString& path, CString& error) {
    return RunImportStep(error, [&] { return FindPathFault(path); });
}

inline bool ReadWorkbookTable(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                              CString& error) {
    return RunImportStep(error, [&] { return ReadWorkbook(path, columns, table, error); });
}
