#include "MFXListCtrl.h"

#include "NumberText.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr UINT kEditorId = 10014;
constexpr UINT kComboId = 10015;
constexpr int kMinimumCol = 1;
constexpr int kMaximumCol = 2;
constexpr int kDropDownHeight = 160;  // pixels at 96 dpi
constexpr wchar_t kCaption[] = L"MfxKit";

}  // namespace

BEGIN_MESSAGE_MAP(CMFXListCtrl, CListCtrl)
    ON_WM_VSCROLL()
END_MESSAGE_MAP()

int CMFXListCtrl::ScaleForDpi(int nPixels) const {
    return MulDiv(nPixels, static_cast<int>(GetDpiForWindow(m_hWnd)), USER_DEFAULT_SCREEN_DPI);
}

// Checks the row itself: the list view also gives rectangles of rows that do not exist.
bool CMFXListCtrl::GetEditorRect(int nRow, int nCol, CRect& rect) {
    const int nColumns = GetHeaderCtrl() ? GetHeaderCtrl()->GetItemCount() : 0;
    if (nRow < 0 || nRow >= GetItemCount() || nCol < 0 || nCol >= nColumns) return false;
    if (!GetSubItemRect(nRow, nCol, LVIR_LABEL, rect)) return false;
    rect.InflateRect(0, 2);
    return true;
}

// The focus goes back to the grid.
void CMFXListCtrl::Hide(CWnd& editor) {
    if (!editor.GetSafeHwnd()) return;
    if (::GetFocus() == editor.m_hWnd) SetFocus();
    editor.ShowWindow(SW_HIDE);
}

void CMFXListCtrl::Record(int nRow, int nCol, const CString& strText) {
    m_nEditRow = nRow;
    m_nEditCol = nCol;
    m_strEditStartText = strText;
}

void CMFXListCtrl::BeginCellEdit(int nRow, int nCol, int nTextLimit) {
    CRect rect;
    if (!GetEditorRect(nRow, nCol, rect)) return;
    const CString strText = GetItemText(nRow, nCol);
    Hide(m_comboCell);
    if (!m_editCell.GetSafeHwnd()) {
        m_editCell.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_AUTOHSCROLL,
                          rect, this, kEditorId);
        m_editCell.SetLimitText(static_cast<UINT>(nTextLimit));
    } else {
        m_editCell.MoveWindow(rect);
        m_editCell.ShowWindow(SW_SHOW);
    }
    m_editCell.SetFont(GetFont());  // the list's font changes with the monitor's dpi
    m_editCell.SetWindowText(strText);
    m_editCell.SetLastValidText(strText);
    m_editCell.SetSel(0, -1);
    m_editCell.SetFocus();
    Record(nRow, nCol, strText);
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
    Hide(m_editCell);
    m_editCell.SetWindowText(m_strEditStartText);
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
    rect.bottom += ScaleForDpi(kDropDownHeight);
    if (!m_comboCell.GetSafeHwnd()) {
        m_comboCell.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST, rect, this,
                           kComboId);
        m_comboCell.LimitText(nTextLimit);
    } else {
        m_comboCell.MoveWindow(rect);
        m_comboCell.ShowWindow(SW_SHOW);
    }
    m_comboCell.SetFont(GetFont());
    m_comboCell.ResetContent();
    int nSelected = 0;
    for (const CString& strItem : m_vecComboItems) {
        const int nItem = m_comboCell.AddString(strItem);
        if (strItem == strText) nSelected = nItem;
    }
    m_comboCell.SetCurSel(nSelected);
    m_comboCell.SetFocus();
    Record(nRow, nCol, strText);
}

BOOL CMFXListCtrl::EndComboEdit(CString& strText, const CString& strDuplicateMessage) {
    const CString strOld = GetItemText(m_nEditRow, m_nEditCol);
    if (!m_comboCell.GetSafeHwnd()) return FALSE;
    CString strChosen;
    m_comboCell.GetWindowText(strChosen);
    Hide(m_comboCell);
    if (strChosen != strOld && IsValueInFirstColumn(strChosen)) {
        MessageBox(strChosen + L" " + strDuplicateMessage, kCaption);
        return FALSE;
    }
    SetCellText(m_nEditRow, m_nEditCol, strChosen);
    strText = strChosen;
    return TRUE;
}

void CMFXListCtrl::SetCellText(int nRow, int nCol, const CString& strText) {
    SetItemText(nRow, nCol, strText);
}

void CMFXListCtrl::InsertRowText(int nRow, const CString& strText) {
    InsertItem(nRow, strText);
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
    if (!IsNumericText(strText) || !CheckMinMaxCells(nRow, nCol)) SetCellText(nRow, nCol, L"");
}

BOOL CMFXListCtrl::CheckMinMaxCells(int nRow, int nCol) {
    if (nCol != kMinimumCol && nCol != kMaximumCol) return TRUE;
    const CString strMinimum = GetItemText(nRow, kMinimumCol), strMaximum = GetItemText(nRow, kMaximumCol);
    if (strMinimum.IsEmpty() || strMaximum.IsEmpty()) return TRUE;
    if (ParseDouble(strMaximum) + kTolerance >= ParseDouble(strMinimum)) return TRUE;
    MessageBox(LoadLocalizedString(IDS_MAXIMUM_BELOW_MINIMUM), kCaption, MB_ICONEXCLAMATION);
    return FALSE;
}

BOOL CMFXListCtrl::CommitAndMove(int nRows, int nCols, bool bMove) {
    CString strText;
    const BOOL bEnded = EndCellEdit(strText);
    if (bMove) BeginCellEdit(m_nEditRow + nRows, m_nEditCol + nCols, kTextLimit);
    return bEnded;
}

BOOL CMFXListCtrl::HandleKeyDown(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) return FALSE;
    switch (pMsg->wParam) {
        case VK_TAB:
            return m_nEditCol < m_nLastEditCol && CommitAndMove(0, 1);
        case VK_RETURN:
            return CommitAndMove(0, 0, false);
        case VK_ESCAPE:
            return CancelCellEdit();
        case VK_LEFT:
            return CommitAndMove(0, -1, m_nEditCol > m_nFirstEditCol);
        case VK_UP:
            return CommitAndMove(-1, 0, m_nEditRow > 0);
        case VK_RIGHT:
            return CommitAndMove(0, 1, m_nEditCol < m_nLastEditCol);
        case VK_DOWN:
            return CommitAndMove(1, 0);
        case VK_DELETE:
            return DeleteSelectedRows();
        default:
            return FALSE;
    }
}

BOOL CMFXListCtrl::DeleteSelectedRows() {
    const UINT nSelected = GetSelectedCount();
    if (nSelected == 0) return FALSE;
    ForgetEditedCell();
    int nRow = -1;
    for (UINT i = 0; i < nSelected; ++i) {
        nRow = GetNextItem(nRow, LVNI_SELECTED);
        if (!DeleteItem(nRow)) return FALSE;
        InsertRowText(nRow, L"");
    }
    return TRUE;
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
    for (std::size_t i = 0; i < headers.size(); ++i)
        InsertColumn(static_cast<int>(i), headers[i], nFormat,
                     ScaleForDpi(widths[std::min(i, widths.size() - 1)]), static_cast<int>(i));
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
