#include "FaultText.h"

#include "LibraryPtr.h"
#include "LocationHelper.h"
#include "ResourceLibrary.h"

CString LoadFaultText(WorkbookFault fault) {
    CString strText;
    for (const CString& strFolder :
         {CLocationHelper::GetLocalizedResPath(), CLocationHelper::GetDefaultResPath()}) {
        const LibraryPtr pLibrary(
            LoadLibraryExW(strFolder + L"\\" + kResourceLibraryFile, nullptr, LOAD_LIBRARY_AS_DATAFILE));
        if (pLibrary && strText.LoadString(pLibrary.get(), static_cast<UINT>(fault))) break;
    }
    return strText;
}
