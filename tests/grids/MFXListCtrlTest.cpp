#include "MFXListCtrl.h"

#include "GridTest.h"
#include "support/GuiObjects.h"

namespace {

class BareGrid : public CMFXListCtrl {
  public:
    void InitColumns(int nColumns) {
        CreateColumns(std::vector<CString>(static_cast<std::size_t>(nColumns), L"c"), {100}, LVCFMT_LEFT);
    }
    using CMFXListCtrl::m_strEditStartText;
};

class MFXListCtrlTest : public GridTest<BareGrid> {
  protected:
    MFXListCtrlTest() {
        m_grid.InitColumns(4);
        Fill(4);
    }
};

}  // namespace

TEST_F(MFXListCtrlTest, EditsACellInPlace) {
    CString strText = L"unchanged";
    EXPECT_FALSE(m_grid.IsCellEditActive() || m_grid.EndCellEdit(strText) || m_grid.CancelCellEdit());
    EXPECT_STREQ(strText, L"unchanged");
    m_grid.BeginCellEdit(1, 2, 3);
    EXPECT_TRUE(IsEditing(1, 2) && m_grid.IsCellEditActive());
    CRect cell, editor;
    m_grid.GetSubItemRect(1, 2, LVIR_LABEL, cell);
    Editor().GetWindowRect(editor);
    m_grid.ScreenToClient(editor);
    cell.InflateRect(0, 2);
    EXPECT_TRUE(editor == cell);
    CString strShown;
    Editor().GetWindowText(strShown);
    EXPECT_STREQ(strShown, L"102");
    EXPECT_STREQ(m_grid.m_strEditStartText, L"102");
    EXPECT_EQ(Editor().SendMessage(EM_GETSEL), MAKELRESULT(0, 3));
    EXPECT_EQ(Editor().GetFont(), m_grid.GetFont());

    for (const wchar_t c : {L'4', L'x', L'5'}) Editor().SendMessage(WM_CHAR, c, 1);
    EXPECT_TRUE(m_grid.EndCellEdit(strText));
    EXPECT_STREQ(strText, L"45");
    EXPECT_STREQ(Cell(1, 2), L"45");
    EXPECT_TRUE(!IsVisible(10014) && CWnd::GetFocus() == &m_grid);
    EXPECT_TRUE(m_grid.IsCellEditActive()) << "from the first editing on";

    Edit(2, 3, L"9");
    EXPECT_TRUE(m_grid.CancelCellEdit());
    EXPECT_TRUE(m_grid.EndCellEdit(strText));
    EXPECT_STREQ(Cell(2, 3), L"203") << "what was cancelled does not come back";
    m_grid.BeginCellEdit(0, 1, 10);
    Editor().GetWindowRect(editor);
    m_grid.ScreenToClient(editor);
    m_grid.GetSubItemRect(0, 1, LVIR_LABEL, cell);
    EXPECT_TRUE(editor.left == cell.left && editor.top == cell.top - 2) << "moved to the next cell";
    Editor().SendMessage(EM_SETSEL, 3, 3);
    Editor().SendMessage(WM_CHAR, L'x', 1);
    Editor().GetWindowText(strText);
    EXPECT_STREQ(strText, L"001") << "the filter goes back to the cell's text";
    EXPECT_EQ(Editor().SendMessage(EM_GETLIMITTEXT), 3) << "the first limit stays";
}

TEST_F(MFXListCtrlTest, HiddenEditorWritesAgainUnlessTheCellIsForgotten) {
    CString strText;
    Edit(1, 1, L"7");
    m_grid.EndCellEdit(strText);
    m_grid.SetCellText(1, 1, L"8");
    m_grid.EndCellEdit(strText);
    EXPECT_STREQ(Cell(1, 1), L"7");
    m_grid.SetCellText(1, 1, L"8");
    m_grid.ForgetEditedCell();
    EXPECT_TRUE(m_grid.EndCellEdit(strText));
    EXPECT_STREQ(Cell(1, 1), L"8");
}

TEST_F(MFXListCtrlTest, ACellThatIsNotThereGetsNoEditor) {
    for (const auto& [nRow, nCol] : {std::pair{-1, 1}, {kRows, 1}, {kRows, 0}, {0, -1}, {0, 4}}) {
        m_grid.BeginCellEdit(nRow, nCol, 260);
        m_grid.BeginComboEdit(nRow, nCol, 260);
        EXPECT_FALSE(m_grid.IsCellEditActive() || IsVisible(10015)) << nRow << ", " << nCol;
        EXPECT_TRUE(m_grid.GetEditRow() == -1 && m_grid.GetEditCol() == -1);
    }
}

TEST_F(MFXListCtrlTest, KeysCommitAndMove) {
    const struct {
        WPARAM nKey;
        int nRow, nCol;        // edited before
        int nNewRow, nNewCol;  // and after; -1 for none
        bool bHandled, bWritten;
    } kCases[] = {
        {VK_TAB, 1, 2, 1, 3, true, true},      {VK_TAB, 1, 3, 1, 3, false, false},
        {VK_RETURN, 1, 2, -1, -1, true, true}, {VK_ESCAPE, 1, 2, -1, -1, true, false},
        {VK_LEFT, 1, 2, 1, 1, true, true},     {VK_LEFT, 1, 1, -1, -1, true, true},
        {VK_RIGHT, 1, 2, 1, 3, true, true},    {VK_RIGHT, 1, 3, -1, -1, true, true},
        {VK_UP, 1, 2, 0, 2, true, true},       {VK_UP, 0, 2, -1, -1, true, true},
        {VK_DOWN, 1, 2, 2, 2, true, true},     {VK_DOWN, kRows - 1, 2, -1, -1, true, true},
        {VK_DELETE, 1, 2, 1, 2, false, false}, {L'A', 1, 2, 1, 2, false, false},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(testing::Message() << test.nKey << " at " << test.nRow << ", " << test.nCol);
        m_grid.SetCellText(test.nRow, test.nCol, L"old");
        Edit(test.nRow, test.nCol, L"5");
        EXPECT_EQ(Press(test.nKey) != 0, test.bHandled);
        EXPECT_STREQ(Cell(test.nRow, test.nCol), test.bWritten ? L"5" : L"old");
        EXPECT_EQ(IsVisible(10014), test.nNewRow >= 0);
        EXPECT_TRUE(test.nNewRow < 0 || IsEditing(test.nNewRow, test.nNewCol));
        EXPECT_EQ(m_grid.GetItemCount(), kRows);
    }
    MSG msg{nullptr, WM_CHAR, VK_TAB, 0, 0, {}};
    EXPECT_FALSE(m_grid.HandleKeyDown(&msg));
}

TEST_F(MFXListCtrlTest, KeysBeforeAnyEditingDoNothing) {
    for (const WPARAM nKey : {VK_TAB, VK_RETURN, VK_ESCAPE, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_DELETE}) {
        EXPECT_FALSE(Press(nKey));
        EXPECT_FALSE(m_grid.IsCellEditActive());
    }
}

TEST_F(MFXListCtrlTest, DeleteBlanksTheSelectedRows) {
    EXPECT_FALSE(m_grid.DeleteSelectedRows());
    Edit(1, 1, L"7");
    for (const int nRow : {0, 1, 3}) m_grid.SetItemState(nRow, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(Press(VK_DELETE));
    EXPECT_FALSE(IsVisible(10014));
    CString strText;
    EXPECT_TRUE(m_grid.EndCellEdit(strText)) << "which no longer has a cell to write to";
    for (int nRow = 0; nRow < kRows; ++nRow)
        EXPECT_STREQ(Row(nRow), nRow == 2 || nRow == 4
                                    ? Name(nRow, 0) + L"|" + Name(nRow, 1) + L"|" + Name(nRow, 2)
                                    : CString(L"||"));
}

TEST_F(MFXListCtrlTest, ChoosesFromTheDropDownList) {
    CString strText;
    EXPECT_FALSE(m_grid.EndComboEdit(strText, L"twice") || m_grid.CancelComboEdit());
    m_grid.SetComboItems({L"Zinc", L"100", L"000", L"100"});
    m_grid.BeginComboEdit(1, 0, 260);
    EXPECT_TRUE(IsVisible(10015) && CWnd::GetFocus() == &Combo());
    EXPECT_EQ(Combo().SendMessage(CB_GETCURSEL), 3) << "the last of the same";
    EXPECT_TRUE(m_grid.EndComboEdit(strText, L"twice")) << "the cell's own value is no other row's";
    EXPECT_STREQ(strText, L"100");
    EXPECT_FALSE(IsVisible(10015));

    m_grid.BeginComboEdit(1, 0, 260);
    Combo().SendMessage(CB_SETCURSEL, 2);
    m_boxes.Expect(L"000 twice");
    EXPECT_FALSE(m_grid.EndComboEdit(strText, L"twice"));
    EXPECT_STREQ(Cell(1, 0), L"100");

    m_grid.BeginComboEdit(1, 0, 260);
    EXPECT_EQ(Combo().SendMessage(CB_GETCOUNT), 4);
    Combo().SendMessage(CB_SETCURSEL, 0);
    EXPECT_TRUE(m_grid.EndComboEdit(strText, L"twice"));
    EXPECT_STREQ(Cell(1, 0), L"Zinc");
    m_grid.BeginComboEdit(2, 0, 260);
    EXPECT_EQ(Combo().SendMessage(CB_GETCURSEL), 0) << "a text that is not offered";
    EXPECT_TRUE(m_grid.CancelComboEdit());
    EXPECT_STREQ(Cell(2, 0), L"200");
    EXPECT_TRUE(m_grid.IsValueInFirstColumn(L"Zinc"));
    EXPECT_FALSE(m_grid.IsValueInFirstColumn(L"zinc"));
}

TEST_F(MFXListCtrlTest, ChecksMinimumAgainstMaximum) {
    const struct {
        LPCWSTR pszMin, pszMax;
        int nCol;
        LPCWSTR pszLeft;  // in the edited cell
        bool bMessage;
    } kCases[] = {
        {L"5", L"5.0000005", 2, L"5.0000005", false},
        {L"5.0000005", L"5", 1, L"5.0000005", false},
        {L"5", L"4.9", 2, L"", true},
        {L"5", L"4.9", 1, L"", true},
        {L"5", L"4.99999", 2, L"", true},
        {L"5", L"", 1, L"5", false},
        {L"", L"4", 2, L"4", false},
        {L"1.2.3", L"1.25", 1, L"1.2.3", false},
        {L"5", L"4", 3, L"4", false},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(testing::Message()
                     << test.pszMin << " to " << test.pszMax << " by column " << test.nCol);
        m_grid.SetCellText(0, 1, test.pszMin);
        m_grid.SetCellText(0, 2, test.pszMax);
        const LPCWSTR pszTyped = test.nCol == 1 ? test.pszMin : test.pszMax;
        Edit(0, test.nCol, pszTyped);
        if (test.bMessage) m_boxes.Expect(L"The maximum is below the minimum.", MB_ICONEXCLAMATION);
        m_grid.CommitNumericCell(0, test.nCol);
        m_boxes.Verify();
        EXPECT_STREQ(Cell(0, test.nCol), test.pszLeft);
    }
    EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
    m_grid.SetCellText(0, 2, L"");
    m_grid.SetCellText(0, 1, L"abc");  // as an import may leave it
    m_grid.BeginCellEdit(0, 1, 260);
    m_grid.CommitNumericCell(0, 1);
    EXPECT_STREQ(Cell(0, 1), L"");
}

TEST_F(MFXListCtrlTest, FindsCellsInReorderedColumnsAndAfterScrolling) {
    int order[] = {0, 3, 1, 2};
    m_grid.SendMessage(LVM_SETCOLUMNORDERARRAY, 4, reinterpret_cast<LPARAM>(order));
    CString strText;
    Edit(1, 3, L"33");
    CRect editor, cell;
    Editor().GetWindowRect(editor);
    m_grid.ScreenToClient(editor);
    EXPECT_TRUE(editor.left >= 95 && editor.left <= 110)
        << "the third column is shown second: " << editor.left;
    m_grid.EndCellEdit(strText);
    EXPECT_STREQ(Cell(1, 3), L"33");

    Fill(4, 200);
    Edit(2, 1, L"44");
    m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_TRUE(IsVisible(10014)) << "scrolling leaves the editor";
    m_grid.EndCellEdit(strText);
    EXPECT_STREQ(Cell(2, 1), L"44");
}

TEST_F(MFXListCtrlTest, CanBeDestroyedWhileACellIsEdited) {
    const auto run = [this] {
        Create(1);
        m_grid.InitColumns(3);
        Fill(3);
        m_grid.SetComboItems({L"a"});
        m_grid.BeginComboEdit(0, 0, 260);
        m_grid.BeginCellEdit(0, 1, 260);
        m_grid.DestroyWindow();
        EXPECT_FALSE(m_grid.IsCellEditActive());
        m_grid.ForgetEditedCell();
    };
    run();
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < 5; ++i) run();
    EXPECT_EQ(CountGuiObjects(), before);
    Create(1);
}
