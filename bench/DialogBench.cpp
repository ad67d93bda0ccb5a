// Opening a rule's dialog, from the call to the first idle moment, against a bare Win32 dialog with the same
// template and contents.

#include "CrashReport.h"
#include "LocationHelper.h"
#include "RatioReport.h"
#include "RuleModule.h"
#include "resource.h"

#include <afxwin.h>
#include <benchmark/benchmark.h>

#include <chrono>

namespace {

CWinApp theApp(L"dialog_bench");

constexpr int kVariationRuleId = 19030;
using Clock = std::chrono::steady_clock;
Clock::time_point g_idle;

// A modal dialog tells its owner when it has nothing more to do.
LRESULT CALLBACK OwnerProcedure(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX) {
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

INT_PTR CALLBACK BareProcedure(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM hLibrary) {
    if (nMessage == WM_INITDIALOG) {
        for (UINT nLabel = IDS_UNIT_MILLIMETRE; nLabel <= IDS_UNIT_FOOT; ++nLabel) {
            wchar_t szLabel[20] = L"";
            LoadStringW(reinterpret_cast<HINSTANCE>(hLibrary), nLabel, szLabel, 20);
            SendDlgItemMessageW(hDialog, IDC_VARIATION_LENGTH_UNIT, CB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(szLabel));
        }
        SendDlgItemMessageW(hDialog, IDC_VARIATION_LENGTH_UNIT, CB_SETCURSEL, 0, 0);
        SetDlgItemTextW(hDialog, IDC_VARIATION_VALUE, L"25.0");
        return TRUE;
    }
    if (nMessage == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(hDialog, IDCANCEL);
    return FALSE;
}

void OpenBareDialog(benchmark::State& state) {
    const HINSTANCE hLibrary =
        LoadLibraryW(CLocationHelper::GetDefaultResPath() + L"\\MFXSandCastingRulesResu.dll");
    TimeToIdle(state, [hLibrary](HWND hOwner) {
        DialogBoxParamW(hLibrary, MAKEINTRESOURCEW(IDD_VARIATION), hOwner, BareProcedure,
                        reinterpret_cast<LPARAM>(hLibrary));
    });
    FreeLibrary(hLibrary);
}

void OpenRuleDialog(benchmark::State& state) {
    const RuleModule module;
    for (const RulePtr& pRule : module.CreateAllRules())
        if (pRule->GetRuleId() == kVariationRuleId)
            TimeToIdle(state, [&](HWND) { pRule->ConfigureRuleDialog(); });
}

void Register(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("open dialog/reference", OpenBareDialog);
    Register("open dialog/subject", OpenRuleDialog);
    return RunWithRatios(argc, argv);
}
