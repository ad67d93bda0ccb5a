#include "WorkbookReader.h"

#include "ExcelSheet.h"
#include "LibraryPtr.h"
#include "ModulePath.h"
#include "NoThrow.h"
#include "WorkbookPath.h"
#include "XlsxReader.h"

namespace {

// COM for this thread; one that has it in another mode keeps that.
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

WorkbookFault ReadByLibrary(const CString& strPath, const WorkbookColumns& columns, WorkbookTable& table,
                            CString& strError) {
    const LibraryPtr pLibrary = LoadReader();
    const FARPROC address = pLibrary ? GetProcAddress(pLibrary.get(), kXlsxReaderExport) : nullptr;
    if (!address) return WorkbookFault::ReaderMissing;
    auto* pRead = reinterpret_cast<ReadXlsxFunction*>(reinterpret_cast<void (*)()>(address));
    bool bRead = false;
    // Here, because an exception can't outlive the library that threw it.
    NoThrow([&] { bRead = pRead(strPath.GetString(), columns, table, strError); });
    return bRead ? WorkbookFault::None : WorkbookFault::ReaderFailed;
}

WorkbookFault ReadActiveSheet(IDispatch* pExcel, const WorkbookColumns& columns, WorkbookTable& table) {
    Variant active;
    AutoInvoke(AutoPropertyGet, &active, pExcel, L"ActiveSheet", 0);
    if (!active.Object()) return WorkbookFault::NotOpened;
    ExcelSheet sheet(active.Object());
    for (const std::wstring& letter : columns)
        if (!sheet.ReadColumn(letter, table.emplace_back())) return WorkbookFault::CellUnreadable;
    return WorkbookFault::None;
}

WorkbookFault ReadInExcel(IDispatch* pExcel, const CString& strPath, const WorkbookColumns& columns,
                          WorkbookTable& table) {
    const Variant path(strPath);
    Variant workbooks, workbook;
    AutoInvoke(AutoPropertyGet, &workbooks, pExcel, L"Workbooks", 0);
    AutoInvoke(AutoMethod, &workbook, workbooks.Object().Get(), L"Open", 1, static_cast<VARIANT>(path));
    if (!workbook.Object()) return WorkbookFault::NotOpened;
    const WorkbookFault fault = ReadActiveSheet(pExcel, columns, table);
    if (fault != WorkbookFault::CellUnreadable)
        AutoInvoke(AutoMethod, nullptr, workbook.Object().Get(), L"Close", 0);
    return fault;
}

WorkbookFault ReadThroughExcel(const CString& strPath, const WorkbookColumns& columns, WorkbookTable& table) {
    const ComScope com;
    CLSID classId;
    if (FAILED(CLSIDFromProgID(L"Excel.Application", &classId))) return WorkbookFault::ExcelNotInstalled;
    Microsoft::WRL::ComPtr<IDispatch> pExcel;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&pExcel))))
        return WorkbookFault::ExcelNotStarted;
    const WorkbookFault fault = ReadInExcel(pExcel.Get(), strPath, columns, table);
    if (fault == WorkbookFault::CellUnreadable) return fault;
    const HRESULT quit = AutoInvoke(AutoMethod, nullptr, pExcel.Get(), L"Quit", 0);
    return FAILED(quit) && fault == WorkbookFault::None ? WorkbookFault::ExcelNotQuit : fault;
}

}  // namespace

WorkbookFault ReadWorkbook(const CString& strPath, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& strReaderError) {
    table.clear();
    const WorkbookFault fault = FindPathFault(strPath);
    if (fault != WorkbookFault::None) return fault;
    return strPath.Right(5).CompareNoCase(L".xlsx") == 0
               ? ReadByLibrary(strPath, columns, table, strReaderError)
               : ReadThroughExcel(strPath, columns, table);
}
