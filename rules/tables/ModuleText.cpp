#include "ModuleText.h"

#include "LibraryPtr.h"
#include "LocationHelper.h"
#include "ResourceLibrary.h"

CString LoadModuleText(UINT nStringId) {
    CString text;
    for (const CString& folder :
         {CLocationHelper::GetLocalizedResPath(), CLocationHelper::GetDefaultResPath()}) {
        const LibraryPtr library(
            LoadLibraryExW(folder + L"\\" + kResourceLibraryFile, nullptr, LOAD_LIBRARY_AS_DATAFILE));
        if (library && text.LoadString(library.get(), nStringId)) break;
    }
    return text;
}
