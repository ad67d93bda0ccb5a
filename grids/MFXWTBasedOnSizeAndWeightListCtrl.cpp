#include "MFXWTBasedOnSizeAndWeightListCtrl.h"

#include "NumberText.h"
#include "RuleParameters.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

BEGIN_MESSAGE_MAP(CMFXWTBasedOnSizeAndWeightListCtrl, CMFXListCtrl)
    ON_WM_DESTROY()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
END_MESSAGE_MAP()

void CMFXWTBasedOnSizeAndWeightListCtrl::InitGroupColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {190}, LVCFMT_LEFT);
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

// The name that a group got; empty for none.
CString CMFXWTBasedOnSizeAndWeightListCtrl::CommitEditedCell() {
    CString strName;
    if (!IsBandGrid() && m_nEditCol == kGroupCol)
        EndComboEdit(strName, LoadLocalizedString(IDS_ALREADY_IN_TABLE));
    else
        CommitCell(m_nEditRow, m_nEditCol);
    return strName;
}

// Forgets the cell: the next click must not report the same name, or refuse it, again. The dialog is told
// before, so that it finds the renamed row.
BOOL CMFXWTBasedOnSizeAndWeightListCtrl::CommitCombo() {
    const CString strName = CommitEditedCell();
    if (!strName.IsEmpty()) Notify(strName, GridGroupNamed);
    ForgetEditedCell();
    return !strName.IsEmpty();
}

bool CMFXWTBasedOnSizeAndWeightListCtrl::CanEdit(const Cell& cell) const {
    if (IsBandGrid()) return cell.nCol >= kFirstBandCol && cell.nCol <= kLastBandCol;
    return (cell.nCol == 1 || cell.nCol == 2) && !GetItemText(cell.nRow, kGroupCol).IsEmpty();
}

BOOL CMFXWTBasedOnSizeAndWeightListCtrl::HandleKey(WPARAM nKey) {
    const Cell edited{m_nEditRow, m_nEditCol};
    const bool bEnds = IsBandGrid() && IsEditorVisible() && nKey != VK_DELETE;
    const BOOL bHandled = CMFXListCtrl::HandleKey(nKey);
    if (bHandled && bEnds)
        Notify(GetItemText(edited.nRow, edited.nCol), nKey == VK_ESCAPE ? GridCellTyped : GridCellCommitted);
    return bHandled;
}

BOOL CMFXWTBasedOnSizeAndWeightListCtrl::OnCommand(WPARAM wParam, LPARAM lParam) {
    const BOOL bHandled = CMFXListCtrl::OnCommand(wParam, lParam);
    if (IsBandGrid() && HIWORD(wParam) == EN_CHANGE) Notify(GetEditorText(), GridCellTyped);
    return bHandled;
}

void CMFXWTBasedOnSizeAndWeightListCtrl::OnDestroy() {
    CMFXListCtrl::OnDestroy();
    m_nLastHitRow = m_nLastHitCol = -1;
}

// The dialog is told last, so that it finds the grid as the click leaves it. Of a new name it is told while
// the edited cell and the last hit one are still those of the group.
void CMFXWTBasedOnSizeAndWeightListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    IGridParent* const pParent = FindGridParent();
    if (m_vecComboItems.empty() && pParent) pParent->SupplyMaterialGroups(*this);
    const Cell edited{m_nEditRow, m_nEditCol};
    const bool bCommits = IsBandGrid() && IsEditorVisible();  // a hidden editor only repeats what it wrote
    const CString strNewGroup = CommitEditedCell();
    const Cell cell = FindCell(point);
    const bool bEdits = CanEdit(cell);
    if (bEdits)
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
    if (!strNewGroup.IsEmpty()) Notify(strNewGroup, GridGroupNamed);
    if (!bEdits && !IsBandGrid()) ForgetEditedCell();
    m_nLastHitRow = cell.nRow;
    m_nLastHitCol = cell.nCol;
    if (bCommits) Notify(GetItemText(edited.nRow, edited.nCol), GridCellCommitted);
    const bool bRefused = !strNewGroup.IsEmpty() && !HasFocus();  // the dialog shows the flaw elsewhere
    if (!bEdits && !bRefused) NotifyOfSelection(cell.nRow);
}

// As a double click does, so that no mouse is needed.
void CMFXWTBasedOnSizeAndWeightListCtrl::BeginRowEdit(int nRow) {
    if (IsBandGrid())
        CMFXListCtrl::BeginRowEdit(nRow);
    else if (!m_vecComboItems.empty() && GetItemText(nRow, kGroupCol) != kDefaultGroup)
        BeginComboEdit(nRow, kGroupCol, kTextLimit);
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
