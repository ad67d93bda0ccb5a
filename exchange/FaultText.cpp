#include "FaultText.h"

#include "LocationHelper.h"

CString LoadFaultText(WorkbookFault fault) {
    CString strText;
    for (const CString& strFolder :
         {CLocationHelper::GetLocalizedResPath(), CLocationHelper::GetDefaultResPath()}) {
        const HMODULE hLibrary =
            LoadLibraryExW(strFolder + L"\\MFXSandCastingRulesResu.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
        const bool bLoaded = hLibrary && strText.LoadString(hLibrary, static_cast<UINT>(fault));
        if (hLibrary) FreeLibrary(hLibrary);
        if (bLoaded) break;
    }
    return strText;
}
