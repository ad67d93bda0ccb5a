// The exports of the library that reads .xlsx workbooks. The import loads that library for each call.
#pragma once

#include "WorkbookTable.h"

inline constexpr wchar_t kXlsxReaderLibrary[] = L"MFXCLRMangedHelper.dll";
inline constexpr char kXlsxReaderExport[] = "ReadExcelAndFillTableColByCol";
inline constexpr char kXlsxSheetExport[] = "DescribeActiveSheet";

// Fills the table, which is empty, as an import through Excel would. False when it can't, with a text for the
// user. Table and text belong to both sides, which are therefore built with the same MFC and C++ runtime.
// The library declares its export as: extern "C" ReadXlsxFunction ReadExcelAndFillTableColByCol;
using ReadXlsxFunction = bool(const std::wstring path, const WorkbookColumns& columns, WorkbookTable& table,
                              CString& error);

// Says what sheet that is. False when it can't.
using DescribeSheetFunction = bool(const std::wstring& path, WorkbookSheet& sheet);
