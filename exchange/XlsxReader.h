// What the library that reads .xlsx workbooks exports. It stands beside the program and is loaded for the
// time of one call.
#pragma once

#include "WorkbookTable.h"

inline constexpr wchar_t kXlsxReaderLibrary[] = L"MFXCLRMangedHelper.dll";
inline constexpr char kXlsxReaderExport[] = "ReadExcelAndFillTableColByCol";

// Texts go from one to the other, so both are built with the same MFC and C++ runtime libraries.
// Fills the table, which is empty, as ReadWorkbook would. False when it can't, with a text for the user.
// The library declares its export as: extern "C" ReadXlsxFunction ReadExcelAndFillTableColByCol;
using ReadXlsxFunction = bool(const std::wstring path, const WorkbookColumns& columns, WorkbookTable& table,
                              CString& strError);
