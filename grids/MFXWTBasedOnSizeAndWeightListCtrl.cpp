#include "MFXWTBasedOnSizeAndWeightListCtrl.h"

#include "NumberText.h"
#include "RuleParameters.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

namespace {

constexpr int kGroupCol = 0;

}  // namespace

BEGIN_MESSAGE_MAP(CMFXWTBasedOnSizeAndWeightListCtrl, CMFXListCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
END_MESSAGE_MAP()

void CMFXWTBasedOnSizeAndWeightListCtrl::InitGroupColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {160}, LVCFMT_LEFT);
}

void CMFXWTBasedOnSizeAndWeightListCtrl::InitBandColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {12, 90}, LVCFMT_CENTER);
}

bool CMFXWTBasedOnSizeAndWeightListCtrl::IsBandGrid() const {
    return GetDlgCtrlID() == IDC_SIZE_WEIGHT_BANDS;
}

IGridParent* CMFXWTBasedOnSizeAndWeightListCtrl::FindGridParent() const {
    return dynamic_cast<IGridParent*>(GetParent());
}

void CMFXWTBasedOnSizeAndWeightListCtrl::Notify(const CString& strText, GridNotification code) {
    if (IGridParent* const pParent = FindGridParent()) pParent->OnGridNotify(strText, code);
}

void CMFXWTBasedOnSizeAndWeightListCtrl::NotifyOfSelection(int nRow) {
    if (!IsBandGrid() && nRow >= 0) Notify(GetItemText(nRow, kGroupCol), GridGroupSelected);
}

int CMFXWTBasedOnSizeAndWeightListCtrl::GetCurrentRow() const {
    return GetNextItem(-1, LVNI_FOCUSED | LVNI_SELECTED);
}

void CMFXWTBasedOnSizeAndWeightListCtrl::NotifyOfKeySelection(int nRowBefore) {
    if (GetCurrentRow() != nRowBefore) NotifyOfSelection(GetCurrentRow());
}

void CMFXWTBasedOnSizeAndWeightListCtrl::CommitCell(int nRow, int nCol) {
    CString strText;
    if (EndCellEdit(strText) && !IsNumericText(strText)) SetCellText(nRow, nCol, L"");
}

// Forgets the cell: the next click must not report the same name, or refuse it, again.
CString CMFXWTBasedOnSizeAndWeightListCtrl::CommitGroupName() {
    CString strName;
    if (EndComboEdit(strName, LoadLocalizedString(IDS_ALREADY_IN_TABLE)))
        SetCellText(m_nEditRow, m_nEditCol, strName);
    ForgetEditedCell();
    return strName;
}

bool CMFXWTBasedOnSizeAndWeightListCtrl::CanEdit(const Cell& cell) const {
    if (IsBandGrid()) return cell.nCol >= 1 && cell.nCol <= 5;
    return (cell.nCol == 1 || cell.nCol == 2) && !GetItemText(cell.nRow, kGroupCol).IsEmpty();
}

// As in every grid, keys commit without checks; only Enter checks a group's name. The group list has no text
// editor to move, so the drop-down list gets the other keys.
BOOL CMFXWTBasedOnSizeAndWeightListCtrl::HandleKeyDown(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) return FALSE;
    if (pMsg->wParam == VK_ESCAPE) {
        const BOOL bCell = CancelCellEdit(), bCombo = CancelComboEdit();
        return bCell || bCombo;
    }
    if (IsBandGrid()) return HandleBandKey(pMsg);
    if (pMsg->wParam == VK_RETURN && IsComboVisible()) {
        const CString strName = CommitGroupName();
        if (!strName.IsEmpty()) Notify(strName, GridGroupNamed);
        return TRUE;
    }
    return pMsg->wParam == VK_DELETE && CMFXListCtrl::HandleKeyDown(pMsg);
}

BOOL CMFXWTBasedOnSizeAndWeightListCtrl::HandleBandKey(MSG* pMsg) {
    const Cell edited{m_nEditRow, m_nEditCol};
    const bool bEditing = IsEditorVisible();
    const BOOL bHandled = CMFXListCtrl::HandleKeyDown(pMsg);
    if (bHandled && bEditing && pMsg->wParam != VK_DELETE)
        Notify(GetItemText(edited.nRow, edited.nCol), GridCellCommitted);
    return bHandled;
}

// The dialog is told last, so that it finds the grid as the click leaves it.
void CMFXWTBasedOnSizeAndWeightListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    IGridParent* const pParent = FindGridParent();
    if (m_vecComboItems.empty() && pParent) pParent->SupplyMaterialGroups(*this);
    const Cell edited{m_nEditRow, m_nEditCol};
    const bool bCommits = IsBandGrid() && IsEditorVisible();  // a hidden editor only repeats what it wrote
    CString strNewGroup;
    if (!IsBandGrid() && m_nEditCol == kGroupCol)
        strNewGroup = CommitGroupName();
    else
        CommitCell(m_nEditRow, m_nEditCol);
    const Cell cell = FindCell(point);
    const bool bEdits = CanEdit(cell);
    if (bEdits)
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
    m_nLastHitRow = cell.nRow;
    m_nLastHitCol = cell.nCol;
    if (!strNewGroup.IsEmpty()) Notify(strNewGroup, GridGroupNamed);
    if (bCommits) Notify(GetItemText(edited.nRow, edited.nCol), GridCellCommitted);
    if (!bEdits) NotifyOfSelection(cell.nRow);
}

// The name of the default group can't be changed.
void CMFXWTBasedOnSizeAndWeightListCtrl::OnLButtonDblClk(UINT nFlags, CPoint point) {
    const Cell cell = FindCell(point);
    if (cell.nRow >= 0 && GetItemText(cell.nRow, kGroupCol) == kDefaultGroup) return;
    if (cell.nCol == kGroupCol && !m_vecComboItems.empty())
        BeginComboEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDblClk(nFlags, point);
}

void CMFXWTBasedOnSizeAndWeightListCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
    const int nRowBefore = GetCurrentRow();
    CMFXListCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
    NotifyOfKeySelection(nRowBefore);
}

// Letters select the group that begins with them.
void CMFXWTBasedOnSizeAndWeightListCtrl::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) {
    const int nRowBefore = GetCurrentRow();
    CMFXListCtrl::OnChar(nChar, nRepCnt, nFlags);
    NotifyOfKeySelection(nRowBefore);
}
