#include "MFXListCtrl.h"

#include "CellEditors.h"
#include "HandleMessage.h"
#include "MFXRuleDlgBase.h"
#include "MaterialLimitsCheck.h"
#include "NumberText.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr UINT kEditorId = 10014;
constexpr UINT kComboId = 10015;
constexpr int kDropDownHeight = 160;  // pixels at 96 dpi

}  // namespace

BEGIN_MESSAGE_MAP(CMFXListCtrl, CListCtrl)
    ON_WM_DESTROY()
    ON_WM_KEYDOWN()
    ON_WM_VSCROLL()
    ON_MESSAGE(WM_NEXTDLGCTL, &CMFXListCtrl::OnNextDialogControl)
END_MESSAGE_MAP()

// Dialogs make their edit boxes 14 units high; the font has 8. The pictures that rows make room for give them
// their height. The list view owns the image list and adds a pixel.
void CMFXListCtrl::SetRowHeight() {
    const int nHeight = MulDiv(GetFontHeight(*this), 14, 8);
    ListView_SetImageList(m_hWnd, ImageList_Create(1, nHeight - 1, ILC_COLOR, 0, 0), LVSIL_SMALL);
}

// Checks the row itself: the list view also gives rectangles of rows that do not exist.
bool CMFXListCtrl::GetEditorRect(int nRow, int nCol, CRect& rect) {
    const int nColumns = GetHeaderCtrl() ? GetHeaderCtrl()->GetItemCount() : 0;
    if (nRow < 0 || nRow >= GetItemCount() || nCol < 0 || nCol >= nColumns) return false;
    EnsureVisible(nRow, FALSE);
    if (!GetSubItemRect(nRow, nCol, LVIR_LABEL, rect)) return false;
    if (ScrollIntoView(rect)) GetSubItemRect(nRow, nCol, LVIR_LABEL, rect);
    rect.InflateRect(0, 2);
    return true;
}

// To the side; a column that is too wide shows its beginning. Whether there was anything to scroll.
bool CMFXListCtrl::ScrollIntoView(const CRect& cell) {
    CRect view;
    GetClientRect(view);
    const int nBeyond = std::max(0, static_cast<int>(cell.right - view.right));
    const int nPixels = std::min(nBeyond, static_cast<int>(cell.left - view.left));
    return nPixels != 0 && Scroll(CSize(nPixels, 0));
}

// The focus goes back to the grid.
void CMFXListCtrl::Hide(CWnd& editor) {
    if (!editor.GetSafeHwnd()) return;
    if (::GetFocus() == editor.m_hWnd) SetFocus();
    editor.ShowWindow(SW_HIDE);
}

// A text editor that is hidden gets the text, too: the keys write it into the recorded cell.
void CMFXListCtrl::RecordEditedCell(int nRow, int nCol, const CString& strText) {
    m_nEditRow = nRow;
    m_nEditCol = nCol;
    m_strEditStartText = strText;
    SetEditorText(strText);
    if (GetSelectedCount() > 0) SetItemState(-1, 0, LVIS_SELECTED);
    SetItemState(nRow, LVIS_FOCUSED, LVIS_FOCUSED);  // where F2 and the arrows go on
}

void CMFXListCtrl::SetEditorText(const CString& strText) {
    if (!IsCellEditActive()) return;
    m_editCell.SetWindowText(strText);
    m_editCell.SetLastValidText(strText);
}

// Stands as the column does; all columns of a grid stand alike. A box that is not left-aligned can't scroll
// to the side.
void CMFXListCtrl::CreateEditor(int nCol, const CRect& rect, int nTextLimit) {
    LVCOLUMN column{};
    column.mask = LVCF_FMT;
    GetColumn(nCol, &column);
    const bool bCentred = (column.fmt & LVCFMT_JUSTIFYMASK) == LVCFMT_CENTER;
    const DWORD dwAlignment = bCentred ? ES_CENTER | ES_AUTOVSCROLL : ES_AUTOHSCROLL;
    m_editCell.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_MULTILINE | dwAlignment, rect, this,
                      kEditorId);
    m_editCell.SetLimitText(static_cast<UINT>(nTextLimit));
}

void CMFXListCtrl::BeginCellEdit(int nRow, int nCol, int nTextLimit) {
    CRect rect;
    if (!GetEditorRect(nRow, nCol, rect)) return;
    const CString strText = GetItemText(nRow, nCol);
    Hide(m_comboCell);
    if (!m_editCell.GetSafeHwnd()) {
        CreateEditor(nCol, rect, nTextLimit);
    } else {
        m_editCell.MoveWindow(rect);
        m_editCell.ShowWindow(SW_SHOW);
    }
    m_editCell.SetFont(GetFont());  // the list's font changes with the monitor's dpi
    PlaceLine(m_editCell, GetFontHeight(*this));
    RecordEditedCell(nRow, nCol, strText);
    m_editCell.SetSel(0, -1);
    m_editCell.SetFocus();
}

BOOL CMFXListCtrl::EndCellEdit(CString& strText) {
    if (!IsCellEditActive()) return FALSE;
    m_editCell.GetWindowText(strText);
    Hide(m_editCell);
    SetCellText(m_nEditRow, m_nEditCol, strText);
    return TRUE;
}

BOOL CMFXListCtrl::CancelCellEdit() {
    if (!IsCellEditActive()) return FALSE;
    if (IsEditorVisible()) SetEditorText(m_strEditStartText);  // a hidden one has been committed
    Hide(m_editCell);
    return TRUE;
}

BOOL CMFXListCtrl::CancelComboEdit() {
    if (!m_comboCell.GetSafeHwnd()) return FALSE;
    const bool bChoosing = IsComboVisible();
    Hide(m_comboCell);
    if (bChoosing) ForgetEditedCell();  // the cell's text need not be among the choices
    return TRUE;
}

BOOL CMFXListCtrl::IsCellEditActive() const {
    return m_editCell.GetSafeHwnd() != nullptr;
}

void CMFXListCtrl::BeginComboEdit(int nRow, int nCol, int nTextLimit) {
    CRect rect;
    if (!GetEditorRect(nRow, nCol, rect)) return;
    const CString strText = GetItemText(nRow, nCol);
    Hide(m_editCell);
    const int nHeight = rect.Height();
    rect.bottom += ScaleForDpi(*this, kDropDownHeight);
    if (!m_comboCell.GetSafeHwnd()) {
        m_comboCell.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST, rect, this,
                           kComboId);
        m_comboCell.LimitText(nTextLimit);
    }
    m_comboCell.SetFont(GetFont());
    PlaceBox(m_comboCell, rect, nHeight);
    m_comboCell.ShowWindow(SW_SHOW);
    m_comboCell.ResetContent();
    for (const CString& strItem : m_vecComboItems) m_comboCell.AddString(strItem);
    m_comboCell.SetCurSel(std::max(0, FindComboItem(strText)));
    m_comboCell.SetFocus();
    RecordEditedCell(nRow, nCol, strText);
}

// The last one of the same; -1 for none.
int CMFXListCtrl::FindComboItem(const CString& strText) const {
    int nItem = static_cast<int>(m_vecComboItems.size()) - 1;
    while (nItem >= 0 && m_vecComboItems[static_cast<std::size_t>(nItem)] != strText) --nItem;
    return nItem;
}

BOOL CMFXListCtrl::EndComboEdit(CString& strText, const CString& strDuplicateMessage) {
    const CString strOld = GetItemText(m_nEditRow, m_nEditCol);
    if (!m_comboCell.GetSafeHwnd()) return FALSE;
    CString strChosen;
    m_comboCell.GetWindowText(strChosen);
    Hide(m_comboCell);
    if (m_comboCell.GetCurSel() < 0) return FALSE;
    if (strChosen != strOld && IsValueInFirstColumn(strChosen)) {
        m_comboCell.SetCurSel(FindComboItem(strOld));  // or the next click would refuse the choice again
        MessageBox(strChosen + L" " + strDuplicateMessage, kMessageCaption);
        return FALSE;
    }
    SetCellText(m_nEditRow, m_nEditCol, strChosen);
    SetEditorText(strChosen);
    strText = strChosen;
    return TRUE;
}

void CMFXListCtrl::SetCellText(int nRow, int nCol, const CString& strText) {
    SetItemText(nRow, nCol, strText);
}

void CMFXListCtrl::InsertRowText(int nRow, const CString& strText) {
    InsertItem(nRow, strText);
}

void CMFXListCtrl::MakeEmptyRows(int nRows) {
    ForgetEditedCell();
    SetRedraw(FALSE);
    DeleteAllItems();
    SetItemCount(nRows);
    for (int nRow = 0; nRow < nRows; ++nRow) InsertRowText(nRow, L"");
    SetRedraw(TRUE);
    Invalidate();
}

void CMFXListCtrl::ForgetEditedCell() {
    Hide(m_editCell);
    Hide(m_comboCell);
    m_nEditRow = m_nEditCol = -1;
}

void CMFXListCtrl::SetComboItems(const std::vector<CString>& items) {
    m_vecComboItems = items;
}

BOOL CMFXListCtrl::IsValueInFirstColumn(const CString& strText) const {
    for (int nRow = 0; nRow < GetItemCount(); ++nRow)
        if (GetItemText(nRow, 0) == strText) return TRUE;
    return FALSE;
}

void CMFXListCtrl::CommitNumericCell(int nRow, int nCol) {
    CString strText;
    if (!EndCellEdit(strText)) return;
    if (IsNumericText(strText) && CheckMinMaxCells(nRow, nCol)) return;
    SetCellText(nRow, nCol, L"");
    SetEditorText(L"");  // or the next click would refuse the text again
}

BOOL CMFXListCtrl::CheckMinMaxCells(int nRow, int nCol) {
    if (nCol != MaterialColumn::Minimum && nCol != MaterialColumn::Maximum) return TRUE;
    const CString strMinimum = GetItemText(nRow, MaterialColumn::Minimum),
                  strMaximum = GetItemText(nRow, MaterialColumn::Maximum);
    if (strMinimum.IsEmpty() || strMaximum.IsEmpty()) return TRUE;
    if (ParseDouble(strMaximum) + kTolerance >= ParseDouble(strMinimum)) return TRUE;
    MessageBox(LoadLocalizedString(IDS_MAXIMUM_BELOW_MINIMUM), kMessageCaption, MB_ICONEXCLAMATION);
    return FALSE;
}

// Up and Down do not open the text editor over a cell of a drop-down list.
BOOL CMFXListCtrl::CommitAndMove(int nRows, int nCols, bool bMove) {
    CString strText;
    const BOOL bEnded = EndCellEdit(strText);
    const int nCol = m_nEditCol + nCols;
    if (bMove && nCol >= m_nFirstEditCol) BeginCellEdit(m_nEditRow + nRows, nCol, kTextLimit);
    return bEnded;
}

BOOL CMFXListCtrl::HandleKeyDown(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) return FALSE;
    BOOL bHandled = TRUE;  // also a key whose handling fails
    HandleMessage(m_hWnd, WM_KEYDOWN, [&] { return bHandled = HandleKey(pMsg->wParam); });
    return bHandled;
}

BOOL CMFXListCtrl::HandleKey(WPARAM nKey) {
    if (nKey == VK_DELETE) return DeleteSelectedRows();
    if (m_nEditRow < 0) return FALSE;
    if (IsComboVisible() && nKey != VK_ESCAPE) return HandleComboKey(nKey);
    switch (nKey) {
        case VK_TAB:
            return GetKeyState(VK_SHIFT) < 0 ? m_nEditCol > m_nFirstEditCol && CommitAndMove(0, -1)
                                             : m_nEditCol < m_nLastEditCol && CommitAndMove(0, 1);
        case VK_RETURN:
            return CommitAndMove(0, 0, false);
        case VK_ESCAPE: {
            const BOOL bCell = CancelCellEdit(), bCombo = CancelComboEdit();
            return bCell || bCombo;
        }
        case VK_LEFT:
            return CommitAndMove(0, -1, m_nEditCol > m_nFirstEditCol);
        case VK_UP:
            return CommitAndMove(-1, 0, m_nEditRow > 0);
        case VK_RIGHT:
            return CommitAndMove(0, 1, m_nEditCol < m_nLastEditCol);
        case VK_DOWN:
            return CommitAndMove(1, 0);
        default:
            return FALSE;
    }
}

// All other keys are the list's.
BOOL CMFXListCtrl::HandleComboKey(WPARAM nKey) {
    if (nKey != VK_TAB && nKey != VK_RETURN) return FALSE;
    if (CommitCombo() && nKey == VK_TAB && GetKeyState(VK_SHIFT) >= 0 && m_nEditCol < m_nLastEditCol)
        BeginCellEdit(m_nEditRow, m_nEditCol + 1, kTextLimit);
    return TRUE;
}

BOOL CMFXListCtrl::CommitCombo() {
    CString strText;
    return EndComboEdit(strText, LoadLocalizedString(IDS_ALREADY_IN_TABLE));
}

BOOL CMFXListCtrl::DeleteSelectedRows() {
    const UINT nSelected = GetSelectedCount();
    if (nSelected == 0) return FALSE;
    ForgetEditedCell();
    SetRedraw(FALSE);
    BOOL bDeleted = TRUE;
    int nRow = -1;
    for (UINT i = 0; bDeleted && i < nSelected; ++i) {
        nRow = GetNextItem(nRow, LVNI_SELECTED);
        bDeleted = DeleteItem(nRow);
        if (bDeleted) InsertRowText(nRow, L"");
    }
    SetRedraw(TRUE);
    Invalidate();
    return bDeleted;
}

LRESULT CMFXListCtrl::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return HandleMessage(m_hWnd, nMessage, [&] { return CListCtrl::WindowProc(nMessage, wParam, lParam); });
}

// The object can get another window, which has other cells.
void CMFXListCtrl::OnDestroy() {
    CListCtrl::OnDestroy();
    m_nEditRow = m_nEditCol = -1;
}

bool CMFXListCtrl::EndEditing() {
    if (IsComboVisible()) return CommitCombo();
    CString strText;
    EndCellEdit(strText);
    return true;
}

bool CMFXListCtrl::HasFocus() const {
    const HWND hFocus = ::GetFocus();
    return m_hWnd && (hFocus == m_hWnd || ::IsChild(m_hWnd, hFocus));
}

void CMFXListCtrl::BeginRowEdit(int nRow) {
    BeginCellEdit(nRow, m_nFirstEditCol, kTextLimit);
}

void CMFXListCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
    if (nChar == VK_F2)
        BeginRowEdit(std::max(0, GetNextItem(-1, LVNI_FOCUSED)));
    else
        CListCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
}

// The text editor asks its parent for the next control when Tab finds no further column. The cell is
// committed as by Enter; then the dialog moves on, unless the cell is refused.
LRESULT CMFXListCtrl::OnNextDialogControl(WPARAM bPrevious, LPARAM lParam) {
    HandleKey(VK_RETURN);
    return IsEditorVisible() ? 0 : GetParent()->SendMessage(WM_NEXTDLGCTL, bPrevious, lParam);
}

// An editor that is shown stays where it is.
void CMFXListCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    CListCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
    Invalidate();
    UpdateWindow();
}

void CMFXListCtrl::CreateColumns(const std::vector<CString>& headers, const std::vector<int>& widths,
                                 int nFormat) {
    if (!GetHeaderCtrl() || GetHeaderCtrl()->GetItemCount() > 0) return;
    m_nFirstEditCol = 1;
    m_nLastEditCol = static_cast<int>(headers.size()) - 1;
    SetRowHeight();
    for (std::size_t i = 0; i < headers.size(); ++i)
        InsertColumn(static_cast<int>(i), headers[i], nFormat,
                     ScaleForDpi(*this, widths[std::min(i, widths.size() - 1)]), static_cast<int>(i));
}

CMFXListCtrl::Cell CMFXListCtrl::FindCell(CPoint point) {
    LVHITTESTINFO hit{};
    hit.pt = point;
    // Below the rows there is no row, but still a column.
    return SubItemHitTest(&hit) < 0 ? Cell{-1, -1} : Cell{hit.iItem, hit.iSubItem};
}

bool CMFXListCtrl::IsEditorVisible() const {
    return IsCellEditActive() && m_editCell.IsWindowVisible();
}

bool CMFXListCtrl::IsComboVisible() const {
    return m_comboCell.GetSafeHwnd() && m_comboCell.IsWindowVisible();
}

CString CMFXListCtrl::GetEditorText() const {
    CString strText;
    m_editCell.GetWindowText(strText);
    return strText;
}

bool CMFXListCtrl::IsEditing() const {
    return IsEditorVisible() || IsComboVisible();
}
