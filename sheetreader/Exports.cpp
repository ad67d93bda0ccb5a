// The library's exports.

#include "FaultText.h"
#include "NoThrow.h"
#include "Workbook.h"
#include "XlsxColumns.h"
#include "XlsxReader.h"

#include <zip.h>

extern "C" __declspec(dllexport) ReadXlsxFunction ReadExcelAndFillTableColByCol;
extern "C" __declspec(dllexport) DescribeSheetFunction DescribeActiveSheet;

namespace {

WorkbookTable ReadTable(zip_source_t* pSource, const WorkbookColumns& columns) {
    XlsxColumns sheet(pSource, columns);
    WorkbookTable table;
    for (std::size_t i = 0; i < columns.size(); ++i) table.push_back(sheet.TakeTexts<CString, int>(i));
    return table;
}

}  // namespace

bool ReadExcelAndFillTableColByCol(const std::wstring path, const WorkbookColumns& columns,
                                   WorkbookTable& table, CString& strError) {
    bool bRead = false;
    NoThrow([&] {
        if (path.size() >= MAX_PATH) return;  // Excel does not open it either
        if (zip_source_t* const pSource = zip_source_win32w_create(path.c_str(), 0, 0, nullptr)) {
            table = ReadTable(pSource, columns);
            bRead = true;
        }
    });
    if (!bRead) NoThrow([&] { strError = LoadFaultText(WorkbookFault::NotOpened); });
    return bRead;
}

bool DescribeActiveSheet(const std::wstring& path, WorkbookSheet& sheet) {
    bool bDone = false;
    NoThrow([&] {
        zip_source_t* const pSource = zip_source_win32w_create(path.c_str(), 0, 0, nullptr);
        if (!pSource) return;
        Workbook workbook(pSource);
        sheet.bHasCells = workbook.FindActiveSheet().has_value();
        std::wstring name;
        ToWide(workbook.GetActiveSheetName(), name);
        sheet.strName = name.c_str();
        bDone = true;
    });
    return bDone;
}
