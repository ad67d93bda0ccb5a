// Opening a rule's dialog, from the call to the first idle moment, against a bare Win32 dialog with the same
// template and contents.

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
#include <string>
#include <vector>

namespace {

CWinApp theApp(L"dialog_bench");

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

// What a bare dialog shows, and how it is filled.
struct BareDialog {
    HINSTANCE hLibrary;
    UINT nTemplate;
    void (*fill)(HWND hDialog, HINSTANCE hLibrary);
};

std::wstring LoadText(HINSTANCE hLibrary, UINT nText) {
    wchar_t szText[100] = L"";
    LoadStringW(hLibrary, nText, szText, 100);
    return szText;
}

void FillUnits(HWND hCombo, HINSTANCE hLibrary) {
    for (UINT nLabel = IDS_UNIT_MILLIMETRE; nLabel <= IDS_UNIT_FOOT; ++nLabel)
        SendMessageW(hCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(LoadText(hLibrary, nLabel).c_str()));
    SendMessageW(hCombo, CB_SETCURSEL, 0, 0);
}

void FillVariation(HWND hDialog, HINSTANCE hLibrary) {
    FillUnits(GetDlgItem(hDialog, IDC_VARIATION_LENGTH_UNIT), hLibrary);
    SetDlgItemTextW(hDialog, IDC_VARIATION_VALUE, L"25.0");
}

void AddColumns(HWND hGrid, HINSTANCE hLibrary, const std::vector<std::pair<UINT, int>>& columns) {
    int nCol = 0;
    for (const auto& [nHeading, nWidth] : columns) {
        std::wstring heading = LoadText(hLibrary, nHeading);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = LVCFMT_CENTER;
        column.cx = nWidth;
        column.pszText = heading.data();
        ListView_InsertColumn(hGrid, nCol++, &column);
    }
}

void AddRows(HWND hGrid, int nRows, int nFilledRows, int nCols) {
    SendMessageW(hGrid, WM_SETREDRAW, FALSE, 0);
    wchar_t szText[] = L"25.4";
    for (int nRow = 0; nRow < nRows; ++nRow) {
        LVITEMW item{};
        item.iItem = nRow;
        ListView_InsertItem(hGrid, &item);
        for (int nCol = 1; nRow < nFilledRows && nCol < nCols; ++nCol)
            ListView_SetItemText(hGrid, nRow, nCol, szText);
    }
    SendMessageW(hGrid, WM_SETREDRAW, TRUE, 0);
}

void FillDraftAngles(HWND hDialog, HINSTANCE hLibrary) {
    FillUnits(GetDlgItem(hDialog, IDC_DRAFT_LENGTH_UNIT), hLibrary);
    AddColumns(GetDlgItem(hDialog, IDC_DRAFT_LEGEND), hLibrary,
               {{0, 12}, {IDS_DRAFT_SIZES, 120}, {IDS_DRAFT_ANGLES, 375}});
    const HWND hBands = GetDlgItem(hDialog, IDC_DRAFT_BANDS);
    AddColumns(hBands, hLibrary,
               {{0, 12},
                {IDS_DRAFT_LOWER_BOUND, 60},
                {IDS_DRAFT_UPPER_BOUND, 60},
                {IDS_DRAFT_FIRST_ANGLE, 134},
                {IDS_DRAFT_SECOND_ANGLE, 130},
                {IDS_DRAFT_THIRD_ANGLE, 111}});
    AddRows(hBands, 200, 4, 6);
}

constexpr int kGroups = 50, kBandsOfGroup = 200;
constexpr int kEmptyRows = 200;  // that the dialog adds to each list

void FillUniformThickness(HWND hDialog, HINSTANCE hLibrary) {
    for (const int nLimit : {IDC_UNIFORM_MINIMUM, IDC_UNIFORM_MAXIMUM})
        SetDlgItemTextW(hDialog, nLimit, L"6.0");
    FillUnits(GetDlgItem(hDialog, IDC_UNIFORM_GROUP), hLibrary);  // about as many
    const HWND hMaterials = GetDlgItem(hDialog, IDC_UNIFORM_MATERIALS);
    AddColumns(hMaterials, hLibrary,
               {{IDS_UNIFORM_MATERIAL_HEADING, 200},
                {IDS_UNIFORM_MINIMUM_HEADING, 120},
                {IDS_UNIFORM_MAXIMUM_HEADING, 120}});
    AddRows(hMaterials, 200, 0, 3);
}

void FillSizeAndWeight(HWND hDialog, HINSTANCE hLibrary) {
    FillUnits(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_LENGTH_UNIT), hLibrary);
    FillUnits(GetDlgItem(hDialog, IDC_SIZE_WEIGHT_MASS_UNIT), hLibrary);  // as many
    const HWND hGroups = GetDlgItem(hDialog, IDC_SIZE_WEIGHT_GROUPS);
    AddColumns(hGroups, hLibrary, {{IDS_SIZE_WEIGHT_GROUPS, 190}});
    AddRows(hGroups, kGroups + kEmptyRows, kGroups, 1);
    const HWND hBands = GetDlgItem(hDialog, IDC_SIZE_WEIGHT_BANDS);
    AddColumns(hBands, hLibrary,
               {{0, 12},
                {IDS_SIZE_WEIGHT_SIZE_FROM, 90},
                {IDS_SIZE_WEIGHT_SIZE_TO, 90},
                {IDS_SIZE_WEIGHT_WEIGHT_FROM, 90},
                {IDS_SIZE_WEIGHT_WEIGHT_TO, 90},
                {IDS_SIZE_WEIGHT_THICKNESS_HEADING, 90}});
    AddRows(hBands, kBandsOfGroup + kEmptyRows, kBandsOfGroup, 6);
}

void AddGroups(CMfxRule& rule) {
    for (int nGroup = 0; nGroup < kGroups; ++nGroup) {
        CString strName;
        strName.Format(L"Group %d", nGroup);
        CMFXConstraint* const pGroup = rule.CreateConstraintObject(ConstraintByMaterial, strName, true);
        for (const long nParamId : kBandParameterIds) {
            CMfxParamStorage* const pList =
                rule.CreateParamStorageObject(TypeDouble, nParamId, OperatorAtMost, ParamLimit, true, false);
            for (int nBand = 0; nBand < kBandsOfGroup; ++nBand) pList->GetValues<double>().Add(100.5 + nBand);
            pGroup->AddParameter(pList);
        }
    }
}

INT_PTR CALLBACK BareProcedure(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM pDialog) {
    if (nMessage == WM_INITDIALOG) {
        const auto& dialog = *reinterpret_cast<const BareDialog*>(pDialog);
        dialog.fill(hDialog, dialog.hLibrary);
        return TRUE;
    }
    if (nMessage == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(hDialog, IDCANCEL);
    return FALSE;
}

void OpenBareDialog(benchmark::State& state, BareDialog dialog) {
    dialog.hLibrary = LoadLibraryW(CLocationHelper::GetDefaultResPath() + L"\\MFXSandCastingRulesResu.dll");
    TimeToIdle(state, [&](HWND hOwner) {
        DialogBoxParamW(dialog.hLibrary, MAKEINTRESOURCEW(dialog.nTemplate), hOwner, BareProcedure,
                        reinterpret_cast<LPARAM>(&dialog));
    });
    FreeLibrary(dialog.hLibrary);
}

void OpenRuleDialog(benchmark::State& state, int nRuleId) {
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

void Register(const std::string& name, int nRuleId, const BareDialog& dialog) {
    const auto add = [&](const std::string& variant, auto function, auto argument) {
        benchmark::RegisterBenchmark((name + variant).c_str(), function, argument)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("/reference", OpenBareDialog, dialog);
    add("/subject", OpenRuleDialog, nRuleId);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("variation", kVariationRuleId, {nullptr, IDD_VARIATION, FillVariation});
    Register("draft-angle", kDraftAngleRuleId, {nullptr, IDD_DRAFT, FillDraftAngles});
    Register("uniform-thickness", kUniformThicknessRuleId, {nullptr, IDD_UNIFORM, FillUniformThickness});
    Register("size-and-weight, 50 groups", kSizeAndWeightRuleId,
             {nullptr, IDD_SIZE_WEIGHT, FillSizeAndWeight});
    return RunWithRatios(argc, argv);
}
