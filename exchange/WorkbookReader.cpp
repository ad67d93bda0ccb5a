#include "WorkbookReader.h"

#include "ExcelSheet.h"
#include "LibraryPtr.h"
#include "ModulePath.h"
#include "NoThrow.h"
#include "WorkbookPath.h"
#include "XlsxReader.h"

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
    pLibrary.reset(LoadLibraryExW(strPath, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    return pLibrary;
}

WorkbookFault ReadByLibrary(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                            CString& error) {
    const LibraryPtr library = LoadReader();
    const FARPROC address = library ? GetProcAddress(library.get(), kXlsxReaderExport) : nullptr;
    if (!address) return WorkbookFault::ReaderMissing;
    auto* read = reinterpret_cast<ReadXlsxFunction*>(reinterpret_cast<void (*)()>(address));
    bool done = false;
    // An exception can't outlive the library that threw it, so it ends here.
    NoThrow([&] { done = read(path.GetString(), columns, table, error); });
    return done ? WorkbookFault::None : WorkbookFault::ReaderFailed;
}

WorkbookFault ReadActiveSheet(IDispatch* excel, const WorkbookColumns& columns, WorkbookTable& table) {
    Variant active;
    AutoInvoke(AutoPropertyGet, &active, excel, L"ActiveSheet", 0);
    if (!active.Object()) return WorkbookFault::NotOpened;
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
                          WorkbookTable& table) {
    if (!SilenceExcel(excel)) return WorkbookFault::NotOpened;
    const Variant book(path);
    Variant workbooks, workbook;
    AutoInvoke(AutoPropertyGet, &workbooks, excel, L"Workbooks", 0);
    AutoInvoke(AutoMethod, &workbook, workbooks.Object().Get(), L"Open", 1, static_cast<VARIANT>(book));
    if (!workbook.Object()) return WorkbookFault::NotOpened;
    const WorkbookFault fault = ReadActiveSheet(excel, columns, table);
    if (fault != WorkbookFault::CellUnreadable)
        AutoInvoke(AutoMethod, nullptr, workbook.Object().Get(), L"Close", 0);
    return fault;
}

WorkbookFault ReadThroughExcel(const CString& path, const WorkbookColumns& columns, WorkbookTable& table) {
    const ComScope com;
    CLSID classId;
    if (FAILED(CLSIDFromProgID(L"Excel.Application", &classId))) return WorkbookFault::ExcelNotInstalled;
    Microsoft::WRL::ComPtr<IDispatch> excel;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&excel))))
        return WorkbookFault::ExcelNotStarted;
    const WorkbookFault fault = ReadInExcel(excel.Get(), path, columns, table);
    if (fault == WorkbookFault::CellUnreadable) return fault;
    const HRESULT quit = AutoInvoke(AutoMethod, nullptr, excel.Get(), L"Quit", 0);
    return FAILED(quit) && fault == WorkbookFault::None ? WorkbookFault::ExcelNotQuit : fault;
}

}  // namespace

WorkbookFault ReadWorkbook(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& readerError) {
    table.clear();
    const WorkbookFault fault = FindPathFault(path);
    if (fault != WorkbookFault::None) return fault;
    return path.Right(5).CompareNoCase(L".xlsx") == 0 ? ReadByLibrary(path, columns, table, readerError)
                                                      : ReadThroughExcel(path, columns, table);
}
