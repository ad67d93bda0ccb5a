#include "MFXListCtrl.h"

#include "GridTest.h"
#include "MFXRuleDlgBase.h"
#include "NoThrow.h"
#include "PictureControl.h"
#include "support/GuiObjects.h"

using testing::ElementsAre;

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

    CString m_strText = L"unchanged";
};

// Without a window, since MFC's own procedure would hold back more.
template <class Window>
class FailingWindow : public Window {
  public:
    using Window::Window;
    void ExpectHeldBack() {
        EXPECT_EQ(Window::WindowProc(WM_CREATE, 0, 0), -1) << "no window then";
        EXPECT_EQ(Window::WindowProc(WM_PAINT, 0, 0), 0) << "no box: Windows would ask again at once";
        MessageBoxRecorder boxes;
        boxes.Expect(L"failure", MB_ICONSTOP);
        EXPECT_EQ(Window::WindowProc(WM_TIMER, 0, 0), 0);
    }

  protected:
    BOOL OnWndMsg(UINT, WPARAM, LPARAM, LRESULT*) override { throw std::runtime_error("failure"); }
};

}  // namespace

TEST(FailingWindowTest, HoldsBackTheExceptionAndTellsTheUser) {
    FailingWindow<CMFXRuleDlgBase>(1, 1, L"", nullptr).ExpectHeldBack();
    FailingWindow<PictureControl>().ExpectHeldBack();
    FailingWindow<CMFXListCtrl>().ExpectHeldBack();
}

TEST(NoThrowTest, DeletesExceptionsOfMfc) {
    static bool bDeleted = false;
    struct Exception : CException {
        Exception() : CException(TRUE) {}
        ~Exception() override { bDeleted = true; }
    };
    NoThrow([] { throw static_cast<CException*>(new Exception); });
    EXPECT_TRUE(bDeleted);
}

TEST_F(MFXListCtrlTest, EditsACellInPlace) {
    EXPECT_FALSE(m_grid.IsCellEditActive());
    EXPECT_FALSE(m_grid.EndCellEdit(m_strText));
    EXPECT_FALSE(m_grid.CancelCellEdit());
    EXPECT_STREQ(m_strText, L"unchanged");
    for (const int nRow : {1, 2}) {  // where the editor is made, where it is moved to
        m_grid.BeginCellEdit(nRow, 2, nRow + 2);
        ExpectEditing(nRow, 2);
        CRect cell;
        m_grid.GetSubItemRect(nRow, 2, LVIR_LABEL, cell);
        EXPECT_NEAR(cell.Height(), Scaled(24), Scaled(2)) << "as an edit box";
        cell.InflateRect(0, 2);
        EXPECT_EQ(PlaceOf(Editor()), cell);
        EXPECT_STREQ(WindowText(Editor()), Name(nRow, 2));
        EXPECT_STREQ(m_grid.m_strEditStartText, Name(nRow, 2));
        EXPECT_EQ(Editor().SendMessage(EM_GETSEL), MAKELRESULT(0, 3));
        EXPECT_EQ(Editor().SendMessage(EM_GETLIMITTEXT), 3) << "the first limit stays";
        EXPECT_EQ(Editor().GetFont(), m_grid.GetFont());
        for (const wchar_t c : {L'4', L'x', L'5'}) Editor().SendMessage(WM_CHAR, c, 1);
        EXPECT_TRUE(m_grid.EndCellEdit(m_strText));
        EXPECT_STREQ(m_strText, L"45");
        EXPECT_STREQ(Cell(nRow, 2), L"45");
        EXPECT_FALSE(IsVisible(kEditorId));
        EXPECT_EQ(CWnd::GetFocus(), &m_grid);
        EXPECT_TRUE(m_grid.IsCellEditActive()) << "from the first editing on";
    }
    m_grid.BeginCellEdit(0, 1, 3);
    Editor().SendMessage(EM_SETSEL, 2, 3);
    Editor().SendMessage(WM_CHAR, L'x', 1);
    EXPECT_STREQ(WindowText(Editor()), L"001") << "the filter goes back to the cell's text";
}

TEST_F(MFXListCtrlTest, HiddenEditorWritesAgainUnlessTheCellIsForgotten) {
    Edit(1, 1, L"7");
    m_grid.EndCellEdit(m_strText);
    m_grid.SetCellText(1, 1, L"8");
    m_grid.EndCellEdit(m_strText);
    EXPECT_STREQ(Cell(1, 1), L"7");
    m_grid.SetCellText(1, 1, L"8");
    m_grid.ForgetEditedCell();
    EXPECT_TRUE(m_grid.EndCellEdit(m_strText));
    EXPECT_STREQ(Cell(1, 1), L"8");
    ExpectKeysUntaken();
    Edit(1, 1, L"9");
    EXPECT_TRUE(m_grid.CancelCellEdit());
    EXPECT_TRUE(m_grid.EndCellEdit(m_strText));
    EXPECT_STREQ(Cell(1, 1), L"8") << "what was cancelled does not come back";
    Edit(1, 1, L"9");
    for (const WPARAM nKey : {VK_RETURN, VK_ESCAPE, VK_RETURN}) Press(nKey);
    EXPECT_STREQ(Cell(1, 1), L"9") << "nor does what was committed go";
}

TEST_F(MFXListCtrlTest, ACellThatIsNotThereGetsNoEditor) {
    for (const auto& [nRow, nCol] : {std::pair{-1, 1}, {kRows, 1}, {kRows, 0}, {0, -1}, {0, 4}}) {
        SCOPED_TRACE(testing::Message() << nRow << ", " << nCol);
        m_grid.BeginCellEdit(nRow, nCol, 260);
        m_grid.BeginComboEdit(nRow, nCol, 260);
        EXPECT_FALSE(m_grid.IsCellEditActive());
        EXPECT_FALSE(IsVisible(kComboId));
        EXPECT_EQ(m_grid.GetEditRow(), -1);
        EXPECT_EQ(m_grid.GetEditCol(), -1);
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
    for (const auto& test : kCases) EXPECT_FALSE(Press(test.nKey)) << test.nKey << " before any editing";
    EXPECT_FALSE(m_grid.IsCellEditActive());
    for (const auto& test : kCases) {
        SCOPED_TRACE(testing::Message() << test.nKey << " at " << test.nRow << ", " << test.nCol);
        m_grid.SetCellText(test.nRow, test.nCol, L"old");
        Edit(test.nRow, test.nCol, L"5");
        EXPECT_EQ(Press(test.nKey) != 0, test.bHandled);
        EXPECT_STREQ(Cell(test.nRow, test.nCol), test.bWritten ? L"5" : L"old");
        EXPECT_EQ(IsVisible(kEditorId), test.nNewRow >= 0);
        if (test.nNewRow >= 0) ExpectEditing(test.nNewRow, test.nNewCol);
        EXPECT_EQ(m_grid.GetItemCount(), kRows);
    }
    MSG msg{nullptr, WM_CHAR, VK_TAB, 0, 0, {}};
    EXPECT_FALSE(m_grid.HandleKeyDown(&msg));
}

TEST_F(MFXListCtrlTest, DeleteBlanksTheSelectedRows) {
    Edit(1, 1, L"7");
    for (const int nRow : {0, 1, 3}) m_grid.SetItemState(nRow, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(Press(VK_DELETE));
    EXPECT_FALSE(IsVisible(kEditorId));
    EXPECT_TRUE(m_grid.EndCellEdit(m_strText)) << "which no longer has a cell to write to";
    for (const int nRow : {0, 1, 3}) EXPECT_THAT(Row(nRow), testing::Each(CString()));
    for (const int nRow : {2, 4})
        EXPECT_THAT(Row(nRow), ElementsAre(Name(nRow, 0), Name(nRow, 1), Name(nRow, 2)));
    EXPECT_EQ(m_grid.GetItemCount(), kRows);
}

TEST_F(MFXListCtrlTest, ChoosesFromTheDropDownList) {
    EXPECT_FALSE(m_grid.EndComboEdit(m_strText, L"twice"));
    EXPECT_FALSE(m_grid.CancelComboEdit());
    m_grid.BeginComboEdit(1, 0, 260);
    CRect nextRow;
    m_grid.GetSubItemRect(2, 0, LVIR_LABEL, nextRow);
    EXPECT_LE(PlaceOf(Combo()).bottom, nextRow.top + 2);
    EXPECT_FALSE(m_grid.EndComboEdit(m_strText, L"twice"));
    EXPECT_STREQ(Cell(1, 0), L"100") << "nothing to choose";
    m_grid.SetComboItems({L"Zinc", L"100", L"000", L"100"});
    const struct {
        int nShown, nChosen;
        bool bTaken;
        LPCWSTR pszLeft;
    } kCases[] = {{3, 3, true, L"100"},   // the last of the same; its own value is no other row's
                  {3, 2, false, L"100"},  // another row's
                  {3, 0, true, L"Zinc"},
                  {0, 1, true, L"100"}};
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.nChosen);
        m_grid.BeginComboEdit(1, 0, 260);
        EXPECT_TRUE(IsVisible(kComboId));
        EXPECT_EQ(CWnd::GetFocus(), &Combo());
        EXPECT_EQ(Combo().SendMessage(CB_GETCOUNT), 4);
        EXPECT_EQ(Combo().SendMessage(CB_GETCURSEL), test.nShown);
        Combo().SendMessage(CB_SETCURSEL, static_cast<WPARAM>(test.nChosen));
        if (!test.bTaken) m_boxes.Expect(L"000 twice");
        EXPECT_EQ(m_grid.EndComboEdit(m_strText, L"twice"), test.bTaken);
        EXPECT_STREQ(m_strText, test.pszLeft);
        EXPECT_STREQ(Cell(1, 0), test.pszLeft);
        EXPECT_FALSE(IsVisible(kComboId));
        EXPECT_TRUE(m_grid.EndComboEdit(m_strText, L"twice")) << "refused once at most";
    }
    m_grid.BeginComboEdit(2, 0, 260);
    EXPECT_EQ(Combo().SendMessage(CB_GETCURSEL), 0) << "a text that is not offered";
    EXPECT_TRUE(m_grid.CancelComboEdit());
    EXPECT_STREQ(Cell(2, 0), L"200");
    m_grid.SetCellText(2, 0, L"Zinc");
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
        {L"5.5", L"5.2", 1, L"", true},  // read with a point, whatever the locale
        {L"5", L"", 1, L"5", false},
        {L"", L"4", 2, L"4", false},
        {L"1.2.3", L"1.25", 1, L"1.2.3", false},
        {L"abc", L"", 1, L"", false},  // as an import may leave it
        {L"5", L"4", 3, L"4", false},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(testing::Message()
                     << test.pszMin << " to " << test.pszMax << " by column " << test.nCol);
        m_grid.SetCellText(0, 1, test.pszMin);
        m_grid.SetCellText(0, 2, test.pszMax);
        Edit(0, test.nCol, test.nCol == 1 ? test.pszMin : test.pszMax);
        if (test.bMessage) m_boxes.Expect(L"The maximum is below the minimum.", MB_ICONEXCLAMATION);
        m_grid.CommitNumericCell(0, test.nCol);
        m_boxes.Verify();
        EXPECT_STREQ(Cell(0, test.nCol), test.pszLeft);
    }
    EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
}

TEST_F(MFXListCtrlTest, FindsCellsInReorderedColumnsAndAfterScrolling) {
    int order[] = {0, 3, 1, 2};
    m_grid.SendMessage(LVM_SETCOLUMNORDERARRAY, 4, reinterpret_cast<LPARAM>(order));
    Edit(1, 3, L"33");
    EXPECT_NEAR(PlaceOf(Editor()).left, Scaled(100), 10) << "the last column is shown second";
    m_grid.EndCellEdit(m_strText);
    EXPECT_STREQ(Cell(1, 3), L"33");

    Fill(4, 40);
    Edit(2, 1, L"44");
    m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_TRUE(IsVisible(kEditorId)) << "scrolling leaves the editor";
    m_grid.EndCellEdit(m_strText);
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
        EXPECT_EQ(m_grid.GetEditRow(), -1);
        m_grid.ForgetEditedCell();
    };
    run();
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < 5; ++i) run();
    EXPECT_EQ(CountGuiObjects().nWindows, before.nWindows);
    EXPECT_EQ(CountGuiObjects().nDrawingObjects, before.nDrawingObjects);
    Create(1);
}
