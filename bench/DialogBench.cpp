// Opening a rule's dialog, from the call to the first idle moment, against a bare Win32 dialog with the same
// template and contents.

#include "CastSizeAndWeightBand.h"
#include "CrashReport.h"
#include "LibraryPtr.h"
#include "LocationHelper.h"
#include "MFXDataHelper.h"
#include "RatioReport.h"
#include "RuleModule.h"
#include "RuleParameters.h"
#include "resource.h"

#include <afxcmn.h>
#include <benchmark/benchmark.h>

#include <chrono>

namespace {

CWinApp theApp(L"dialog_bench");

constexpr int kGroups = 50, kBands = 200;
constexpr int kEmptyRows = 200;  // that the dialog adds to its lists
using Clock = std::chrono::steady_clock;
Clock::time_point g_idle;

// A modal dialog tells its owner when it has nothing more to do. A bare one also tells it right after it has
// shown itself, before it is painted.
LRESULT CALLBACK OwnerProcedure(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && !HIWORD(GetQueueStatus(QS_PAINT))) {
        g_idle = Clock::now();
        PostMessageW(reinterpret_cast<HWND>(lParam), WM_COMMAND, IDCANCEL, 0);
    }
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

HWND CreateOwner() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OwnerProcedure;
    windowClass.lpszClassName = L"Owner";
    RegisterClassW(&windowClass);
    return CreateWindowW(L"Owner", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                         nullptr, nullptr);
}

template <class Open>
void TimeToIdle(benchmark::State& state, Open&& open) {
    const HWND hOwner = CreateOwner();
    SetActiveWindow(hOwner);
    for (auto _ : state) {
        const auto start = Clock::now();
        open(hOwner);
        state.SetIterationTime(std::chrono::duration<double>(g_idle - start).count());
    }
    DestroyWindow(hOwner);
}

HINSTANCE ResourceLibrary() {
    static const LibraryPtr library(
        LoadLibraryW(CLocationHelper::GetDefaultResPath() + L"\\MFXSandCastingRulesResu.dll"));
    return library.get();
}

void FillLengthUnits(HWND hCombo) {
    for (UINT nLabel = IDS_UNIT_MILLIMETRE; nLabel <= IDS_UNIT_FOOT; ++nLabel) {
        wchar_t szLabel[20] = L"";
        LoadStringW(ResourceLibrary(), nLabel, szLabel, 20);
        SendMessageW(hCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(szLabel));
    }
    SendMessageW(hCombo, CB_SETCURSEL, 0, 0);
}

void FillVariationDialog(HWND hDialog) {
    FillLengthUnits(GetDlgItem(hDialog, IDC_VARIATION_LENGTH_UNIT));
    SetDlgItemTextW(hDialog, IDC_VARIATION_VALUE, L"25.0");
}

// A list with texts in all cells of its first rows.
void FillList(HWND hList, int nColumns, int nTexts, int nRows) {
    wchar_t szText[] = L"100.0";
    SendMessageW(hList, WM_SETREDRAW, FALSE, 0);
    ListView_SetExtendedListViewStyle(hList, LVS_EX_GRIDLINES | LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT |
                                                 LVS_EX_ONECLICKACTIVATE | LVS_EX_INFOTIP);
    for (int nCol = 0; nCol < nColumns; ++nCol) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_TEXT;
        column.cx = 90;
        column.pszText = szText;
        ListView_InsertColumn(hList, nCol, &column);
    }
    for (int nRow = 0; nRow < nRows; ++nRow) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = nRow;
        item.pszText = szText;
        ListView_InsertItem(hList, &item);
        for (int nCol = 1; nRow < nTexts && nCol < nColumns; ++nCol)
            ListView_SetItemText(hList, nRow, nCol, szText);
    }
    SendMessageW(hList, WM_SETREDRAW, TRUE, 0);
}

void FillSizeAndWeightDialog(HWND hDialog) {
    FillLengthUnits(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_LENGTH_UNIT));
    FillLengthUnits(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_MASS_UNIT));  // as many
    FillList(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_GROUPS), 1, kGroups, kGroups + kEmptyRows);
    FillList(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_BANDS), 1 + BandCell::Count, kBands, kBands + kEmptyRows);
}

template <void (*fill)(HWND)>
INT_PTR CALLBACK BareProcedure(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM) {
    if (nMessage == WM_INITDIALOG) fill(hDialog);
    if (nMessage == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(hDialog, IDCANCEL);
    return nMessage == WM_INITDIALOG;
}

template <UINT nTemplate, void (*fill)(HWND)>
void OpenBareDialog(benchmark::State& state) {
    TimeToIdle(state, [](HWND hOwner) {
        DialogBoxParamW(ResourceLibrary(), MAKEINTRESOURCEW(nTemplate), hOwner, BareProcedure<fill>, 0);
    });
}

void AddGroups(CMfxRule& rule) {
    for (int nGroup = 0; nGroup < kGroups; ++nGroup) {
        CString strName;
        strName.Format(L"Group %d", nGroup);
        CMFXConstraint* const pGroup = rule.CreateConstraintObject(ConstraintByMaterial, strName, true);
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
            CMfxParamStorage* const pList = rule.CreateParamStorageObject(
                TypeDouble, kBandParameterIds[cell], OperatorAtMost, ParamLimit, true, false);
            for (int nBand = 0; nBand < kBands; ++nBand)
                pList->GetValues<double>().Add(100.0 + nBand + static_cast<int>(cell) % 2);
            pGroup->AddParameter(pList);
        }
    }
}

template <int nRuleId>
void OpenRuleDialog(benchmark::State& state) {
    const LibraryPtr database(LoadLibraryW(L"MFXDatabaseu.dll"));
    if (!database) return state.SkipWithError("MFXDatabaseu.dll is missing");
    mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr);  // the user's database is not opened
    const RuleModule module;
    for (const RulePtr& pRule : module.CreateAllRules()) {
        if (pRule->GetRuleId() != nRuleId) continue;
        if (nRuleId == kSizeAndWeightRuleId) AddGroups(*pRule);
        TimeToIdle(state, [&](HWND) { pRule->ConfigureRuleDialog(); });
    }
}

void Register(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("open dialog/reference", OpenBareDialog<IDD_VARIATION, FillVariationDialog>);
    Register("open dialog/subject", OpenRuleDialog<kVariationRuleId>);
    Register("open 50 groups of 200 bands/reference",
             OpenBareDialog<IDD_SIZE_WEIGHT, FillSizeAndWeightDialog>);
    Register("open 50 groups of 200 bands/subject", OpenRuleDialog<kSizeAndWeightRuleId>);
    return RunWithRatios(argc, argv);
}
