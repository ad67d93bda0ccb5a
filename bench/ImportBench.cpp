// Reading the cells of a column through Excel, against a bare loop of the same calls that looks every name up
// once. For both, the stand-in of the tests is Excel; its start is left out.

#include "ExcelSheet.h"

#include "CrashReport.h"
#include "RatioReport.h"
#include "automation/AutomationServer.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kRows = 6;  // the last one is empty

void ReadBySheet(benchmark::State& state, IDispatch* dispatch) {
    ExcelSheet sheet(dispatch);
    for (auto _ : state) {
        std::vector<CString> texts;
        if (!sheet.ReadColumn(L"A", texts) || texts.size() != kRows - 1) state.SkipWithError("a wrong text");
    }
}

DISPID IdOf(IDispatch* object, LPCWSTR name) {
    DISPID id = DISPID_UNKNOWN;
    auto* member = const_cast<LPOLESTR>(name);
    object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

void ReadByBareLoop(benchmark::State& state, IDispatch* dispatch) {
    const DISPID range = IdOf(dispatch, L"Range");
    DISPID value = DISPID_UNKNOWN;
    for (auto _ : state)
        for (int row = 1; row <= kRows; ++row) {
            Variant address((L"A" + std::to_wstring(row)).c_str()), cell, text;
            DISPPARAMS one{&address, nullptr, 1, 0}, none{};
            dispatch->Invoke(range, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &one, &cell, nullptr,
                             nullptr);
            if (value == DISPID_UNKNOWN) value = IdOf(cell.pdispVal, L"value");
            cell.pdispVal->Invoke(value, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &text,
                                  nullptr, nullptr);
        }
}

template <class Read>
void Register(const char* name, Read read, IDispatch* dispatch) {
    benchmark::RegisterBenchmark(name, read, dispatch)
        ->UseRealTime()
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.05)
        ->Repetitions(41);
}

int RunInExcel(int argc, wchar_t** argv) {
    const TempFolder folder;
    const std::wstring book = folder.Write(L"b.xls", "H1\n0\n25\n50\n101.6\n");
    Microsoft::WRL::ComPtr<IDispatch> excel;
    CLSID classId;
    CLSIDFromProgID(L"Excel.Application", &classId);
    CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&excel));
    const Variant path(book.c_str());
    Variant workbooks, workbook, sheet;
    AutoInvoke(AutoPropertyGet, &workbooks, excel.Get(), L"Workbooks", 0);
    AutoInvoke(AutoMethod, &workbook, workbooks.Object().Get(), L"Open", 1, static_cast<VARIANT>(path));
    AutoInvoke(AutoPropertyGet, &sheet, excel.Get(), L"ActiveSheet", 0);
    if (!sheet.Object()) return EXIT_FAILURE;
    Register("column of a sheet/reference", ReadByBareLoop, sheet.Object().Get());
    Register("column of a sheet/subject", ReadBySheet, sheet.Object().Get());
    return RunWithRatios(argc, argv);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    const AutomationServer server;
    CoInitialize(nullptr);
    const int exitCode = RunInExcel(argc, argv);
    CoUninitialize();
    return exitCode;
}
