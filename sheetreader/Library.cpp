// The library's one export.

#include "FaultText.h"
#include "NoThrow.h"
#include "XlsxColumns.h"
#include "XlsxReader.h"

#include <zip.h>

extern "C" __declspec(dllexport) ReadXlsxFunction ReadExcelAndFillTableColByCol;

bool ReadExcelAndFillTableColByCol(const std::wstring path, const WorkbookColumns& columns,
                                   WorkbookTable& table, CString& strError) {
    bool bRead = false;
    NoThrow([&] {
        if (path.size() >= MAX_PATH) return;  // nor does Excel
        if (zip_source_t* const pSource = zip_source_win32w_create(path.c_str(), 0, 0, nullptr)) {
            const XlsxColumns sheet(pSource, columns);
            WorkbookTable texts;
            for (std::size_t i = 0; i < columns.size(); ++i) texts.push_back(sheet.Texts<CString, int>(i));
            table = std::move(texts);
            bRead = true;
        }
    });
    if (!bRead) NoThrow([&] { strError = LoadFaultText(WorkbookFault::NotOpened); });
    return bRead;
}
