#include "WorkbookReader.h"

#include "ExcelSheet.h"
#include "LibraryPtr.h"
#include "ModulePath.h"
#include "NoThrow.h"
#include "WorkbookPath.h"
#include "XlsxReader.h"

#include <algorithm>
#include <fstream>
#include <string_view>

namespace {

// Starts COM for this thread; a thread that has it in another mode keeps that mode.
struct ComScope {
    ~ComScope() {
        if (SUCCEEDED(m_result)) CoUninitialize();
    }
    const HRESULT m_result = CoInitialize(nullptr);
};

// From where programs have their libraries, or else beside the library that this code is in. Not from the
// current folder, which may be that of the workbook and whatever came with it.
LibraryPtr LoadReader() {
    LibraryPtr pLibrary(LoadLibraryExW(kXlsxReaderLibrary, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS));
    if (pLibrary) return pLibrary;
    static const wchar_t kHere = 0;
    const CString strPath = GetModuleFolder(GetModuleOfAddress(&kHere)) + L"\\" + kXlsxReaderLibrary;
    return LoadLibraryAt(strPath);
}

template <class Function>
Function* FindExport(const LibraryPtr& library, const char* name) {
    const FARPROC address = library ? GetProcAddress(library.get(), name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(address));
}

WorkbookFault ReadByLibrary(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                            CString& error, WorkbookSheet* sheet) {
    const LibraryPtr library = LoadReader();
    auto* const read = FindExport<ReadXlsxFunction>(library, kXlsxReaderExport);
    if (!read) return WorkbookFault::ReaderMissing;
    bool done = false;
    // An exception can't outlive the library that threw it, so it ends here.
    NoThrow([&] { done = read(path.GetString(), columns, table, error); });
    auto* const describe = FindExport<DescribeSheetFunction>(library, kXlsxSheetExport);
    if (done && sheet && describe) describe(path.GetString(), *sheet);
    return done ? WorkbookFault::None : WorkbookFault::ReaderFailed;
}

void Describe(IDispatch* active, WorkbookSheet& sheet) {
    Variant name;
    AutoInvoke(AutoPropertyGet, &name, active, L"Name", 0);
    if (name.vt == VT_BSTR) sheet.strName = name.bstrVal;
}

WorkbookFault ReadActiveSheet(IDispatch* excel, const WorkbookColumns& columns, WorkbookTable& table,
                              WorkbookSheet* described) {
    Variant active;
    AutoInvoke(AutoPropertyGet, &active, excel, L"ActiveSheet", 0);
    if (!active.Object()) return WorkbookFault::NotOpened;
    if (described) Describe(active.Object().Get(), *described);
    ExcelSheet sheet(active.Object());
    for (const std::wstring& letters : columns)
        if (!sheet.ReadColumn(letters, table.emplace_back())) return WorkbookFault::CellUnreadable;
    return WorkbookFault::None;
}

// Nobody sees this Excel to answer it, and the macros of the workbook are none of the import's business.
bool SilenceExcel(IDispatch* excel) {
    constexpr long kForceDisable = 3;  // of MsoAutomationSecurity
    Variant alerts, security;
    alerts.vt = VT_BOOL, alerts.boolVal = VARIANT_FALSE;
    security.vt = VT_I4, security.lVal = kForceDisable;
    return SUCCEEDED(AutoInvoke(AutoPropertyPut, nullptr, excel, L"DisplayAlerts", 1,
                                static_cast<VARIANT>(alerts))) &&
           SUCCEEDED(AutoInvoke(AutoPropertyPut, nullptr, excel, L"AutomationSecurity", 1,
                                static_cast<VARIANT>(security)));
}

WorkbookFault ReadInExcel(IDispatch* excel, const CString& path, const WorkbookColumns& columns,
                          WorkbookTable& table, WorkbookSheet* sheet) {
    if (!SilenceExcel(excel)) return WorkbookFault::NotOpened;
    const Variant book(path);
    Variant workbooks, workbook;
    AutoInvoke(AutoPropertyGet, &workbooks, excel, L"Workbooks", 0);
    AutoInvoke(AutoMethod, &workbook, workbooks.Object().Get(), L"Open", 1, static_cast<VARIANT>(book));
    if (!workbook.Object()) return WorkbookFault::NotOpened;
    const WorkbookFault fault = ReadActiveSheet(excel, columns, table, sheet);
    if (fault != WorkbookFault::CellUnreadable)
        AutoInvoke(AutoMethod, nullptr, workbook.Object().Get(), L"Close", 0);
    return fault;
}

WorkbookFault ReadThroughExcel(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                               WorkbookSheet* sheet) {
    const ComScope com;
    CLSID classId;
    if (FAILED(CLSIDFromProgID(L"Excel.Application", &classId))) return WorkbookFault::ExcelNotInstalled;
    Microsoft::WRL::ComPtr<IDispatch> excel;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&excel))))
        return WorkbookFault::ExcelNotStarted;
    const WorkbookFault fault = ReadInExcel(excel.Get(), path, columns, table, sheet);
    if (fault == WorkbookFault::CellUnreadable) return fault;
    const HRESULT quit = AutoInvoke(AutoMethod, nullptr, excel.Get(), L"Quit", 0);
    return FAILED(quit) && fault == WorkbookFault::None ? WorkbookFault::ExcelNotQuit : fault;
}

}  // namespace

WorkbookFault ReadWorkbook(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& readerError, WorkbookSheet* sheet) {
    table.clear();
    const WorkbookFault fault = FindPathFault(path);
    if (fault != WorkbookFault::None) return fault;
    return path.Right(5).CompareNoCase(L".xlsx") == 0
               ? ReadByLibrary(path, columns, table, readerError, sheet)
               : ReadThroughExcel(path, columns, table, sheet);
}

bool IsOtherThanWorkbook(const CString& path) {
    constexpr std::string_view kStarts[] = {"PK\x03\x04", "\xD0\xCF\x11\xE0", {"\x09\x00", 2},
                                            "\x09\x02",   "\x09\x04",         "\x09\x08"};
    char start[4] = {};
    std::ifstream file(path.GetString(), std::ios::binary);
    const bool wasOpened = file.is_open();
    file.read(start, sizeof start);
    return wasOpened && std::ranges::none_of(kStarts, [&](std::string_view known) {
               return std::string_view(start, sizeof start).starts_with(known);
           });
}
