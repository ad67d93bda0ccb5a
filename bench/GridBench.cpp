// The editable grid against the same work through bare window messages: filling, editing cells, blanking
// rows.

#include "CrashReport.h"
#include "MFXListCtrl.h"
#include "RatioReport.h"

#include <afxcmn.h>
#include <benchmark/benchmark.h>

#include <string>

namespace {

CWinApp theApp(L"grid_bench");

constexpr int kRows = 200;
constexpr int kColumns = 6;
constexpr int kEdits = 10'000;
constexpr wchar_t kText[] = L"12.5";

LPARAM AsParam(const void* pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

class Grid : public CMFXListCtrl {
  public:
    void InitColumns() { CreateColumns(std::vector<CString>(kColumns, L"c"), {100}, LVCFMT_LEFT); }
};

// A window with the grid, or with a plain list view of the same style.
class Stage {
  public:
    Stage() {
        m_parent.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 700, 500), nullptr, 0);
        m_grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, CRect(0, 0, 700, 500),
                      &m_parent, 1);
        m_grid.InitColumns();
    }
    ~Stage() { m_parent.DestroyWindow(); }

    CWnd m_parent;
    Grid m_grid;
};

class BareStage {
  public:
    BareStage() : m_hParent(Create(L"STATIC", WS_POPUP, nullptr)) {
        m_hList = Create(WC_LISTVIEWW, WS_CHILD | LVS_REPORT | LVS_SHOWSELALWAYS, m_hParent);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.cx = 100;
        column.pszText = const_cast<LPWSTR>(L"c");
        for (int nCol = 0; nCol < kColumns; ++nCol) {
            column.iSubItem = nCol;
            SendMessageW(m_hList, LVM_INSERTCOLUMNW, static_cast<WPARAM>(nCol), AsParam(&column));
        }
    }
    ~BareStage() { DestroyWindow(m_hParent); }

    void Insert(int nRow, const wchar_t* pszText) const {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = nRow;
        item.pszText = const_cast<LPWSTR>(pszText);
        SendMessageW(m_hList, LVM_INSERTITEMW, 0, AsParam(&item));
    }
    void SetText(int nRow, int nCol, const wchar_t* pszText) const {
        LVITEMW item{};
        item.iSubItem = nCol;
        item.pszText = const_cast<LPWSTR>(pszText);
        SendMessageW(m_hList, LVM_SETITEMTEXTW, static_cast<WPARAM>(nRow), AsParam(&item));
    }
    void GetText(int nRow, int nCol, wchar_t* pszText, int nSize) const {
        LVITEMW item{};
        item.iSubItem = nCol;
        item.pszText = pszText;
        item.cchTextMax = nSize;
        SendMessageW(m_hList, LVM_GETITEMTEXTW, static_cast<WPARAM>(nRow), AsParam(&item));
    }
    void Fill() const {
        for (int nRow = 0; nRow < kRows; ++nRow) {
            Insert(nRow, kText);
            for (int nCol = 1; nCol < kColumns; ++nCol) SetText(nRow, nCol, kText);
        }
    }

    HWND m_hParent;
    HWND m_hList;

  private:
    static HWND Create(const wchar_t* pszClass, DWORD dwStyle, HWND hParent) {
        return CreateWindowW(pszClass, L"", dwStyle | WS_VISIBLE, 0, 0, 700, 500, hParent, nullptr, nullptr,
                             nullptr);
    }
};

void Fill(Grid& grid) {
    for (int nRow = 0; nRow < kRows; ++nRow) {
        grid.InsertRowText(nRow, kText);
        for (int nCol = 1; nCol < kColumns; ++nCol) grid.SetCellText(nRow, nCol, kText);
    }
}

void FillGrid(benchmark::State& state) {
    Stage stage;
    for (auto _ : state) {
        Fill(stage.m_grid);
        state.PauseTiming();
        ListView_DeleteAllItems(stage.m_grid);
        state.ResumeTiming();
    }
}

void FillBare(benchmark::State& state) {
    const BareStage stage;
    for (auto _ : state) {
        stage.Fill();
        state.PauseTiming();
        SendMessageW(stage.m_hList, LVM_DELETEALLITEMS, 0, 0);
        state.ResumeTiming();
    }
}

void EditGrid(benchmark::State& state) {
    Stage stage;
    Fill(stage.m_grid);
    CString strText;
    for (auto _ : state)
        for (int i = 0; i < kEdits; ++i) {
            stage.m_grid.BeginCellEdit(i % 10, 1 + i % (kColumns - 1), 260);
            stage.m_grid.EndCellEdit(strText);
        }
}

// What an in-cell editor cannot do without.
void EditBare(benchmark::State& state) {
    const BareStage stage;
    stage.Fill();
    const HWND hEdit =
        CreateWindowW(L"EDIT", L"", WS_CHILD | WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_AUTOHSCROLL, 0, 0,
                      10, 10, stage.m_hList, nullptr, nullptr, nullptr);
    SendMessageW(hEdit, WM_SETFONT, static_cast<WPARAM>(SendMessageW(stage.m_hList, WM_GETFONT, 0, 0)),
                 FALSE);
    for (auto _ : state)
        for (int i = 0; i < kEdits; ++i) {
            const int nRow = i % 10, nCol = 1 + i % (kColumns - 1);
            RECT rect{LVIR_LABEL, nCol, 0, 0};
            SendMessageW(stage.m_hList, LVM_GETSUBITEMRECT, static_cast<WPARAM>(nRow), AsParam(&rect));
            wchar_t szText[260];
            stage.GetText(nRow, nCol, szText, 260);
            MoveWindow(hEdit, rect.left, rect.top - 2, rect.right - rect.left, rect.bottom - rect.top + 4,
                       TRUE);
            ShowWindow(hEdit, SW_SHOW);
            SetWindowTextW(hEdit, szText);
            SendMessageW(hEdit, EM_SETSEL, 0, -1);
            SetFocus(hEdit);
            GetWindowTextW(hEdit, szText, 260);
            ShowWindow(hEdit, SW_HIDE);
            stage.SetText(nRow, nCol, szText);
        }
}

void SelectAll(HWND hList) {
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED;
    SendMessageW(hList, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), AsParam(&item));
}

void BlankGrid(benchmark::State& state) {
    Stage stage;
    Fill(stage.m_grid);
    for (auto _ : state) {
        state.PauseTiming();
        SelectAll(stage.m_grid);
        state.ResumeTiming();
        stage.m_grid.DeleteSelectedRows();
    }
}

void BlankBare(benchmark::State& state) {
    const BareStage stage;
    stage.Fill();
    for (auto _ : state) {
        state.PauseTiming();
        SelectAll(stage.m_hList);
        state.ResumeTiming();
        auto nRow = static_cast<WPARAM>(-1);
        for (int i = 0; i < kRows; ++i) {
            nRow = static_cast<WPARAM>(SendMessageW(stage.m_hList, LVM_GETNEXTITEM, nRow, LVNI_SELECTED));
            SendMessageW(stage.m_hList, LVM_DELETEITEM, nRow, 0);
            stage.Insert(static_cast<int>(nRow), L"");
        }
    }
}

void Register(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("fill 200 by 6/reference", FillBare);
    Register("fill 200 by 6/subject", FillGrid);
    Register("edit 10000 cells/reference", EditBare);
    Register("edit 10000 cells/subject", EditGrid);
    Register("blank 200 rows/reference", BlankBare);
    Register("blank 200 rows/subject", BlankGrid);
    return RunWithRatios(argc, argv);
}
