#include "FaultText.h"

#include "LibraryPtr.h"
#include "LocationHelper.h"
#include "ResourceLibrary.h"

CString LoadFaultText(WorkbookFault fault) {
    CString text;
    for (const CString& folder :
         {CLocationHelper::GetLocalizedResPath(), CLocationHelper::GetDefaultResPath()}) {
        const LibraryPtr library(
            LoadLibraryExW(folder + L"\\" + kResourceLibraryFile, nullptr, LOAD_LIBRARY_AS_DATAFILE));
        if (library && text.LoadString(library.get(), static_cast<UINT>(fault))) break;
    }
    return text;
}
