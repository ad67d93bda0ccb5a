#include "MFXWTBasedOnSizeAndWeightListCtrl.h"

#include "NumberText.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

namespace {

constexpr int kGroupCol = 0;
constexpr wchar_t kDefaultGroup[] = L"Default";

}  // namespace

BEGIN_MESSAGE_MAP(CMFXWTBasedOnSizeAndWeightListCtrl, CMFXListCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_KEYDOWN()
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

void CMFXWTBasedOnSizeAndWeightListCtrl::NotifyOfSelection(int nRowBefore) {
    const int nRow = GetSelectedRow();
    if (!IsBandGrid() && nRow >= 0 && nRow != nRowBefore)
        Notify(GetItemText(nRow, kGroupCol), GridGroupSelected);
}

void CMFXWTBasedOnSizeAndWeightListCtrl::CommitCell(int nRow, int nCol) {
    CString strText;
    const bool bEditing = IsEditorVisible();  // a hidden one only repeats what it wrote before
    if (!EndCellEdit(strText)) return;
    if (!IsNumericText(strText)) SetCellText(nRow, nCol, L"");
    if (IsBandGrid() && bEditing) Notify(GetItemText(nRow, nCol), GridCellCommitted);
}

// The new name of a group, empty when the last edited cell was none or its name was not accepted.
CString CMFXWTBasedOnSizeAndWeightListCtrl::CommitEditedCell() {
    CString strName;
    if (m_nEditCol == kGroupCol && EndComboEdit(strName, LoadLocalizedString(IDS_ALREADY_IN_TABLE)) &&
        !IsBandGrid()) {
        SetCellText(m_nEditRow, m_nEditCol, strName);
        return strName;
    }
    CommitCell(m_nEditRow, m_nEditCol);
    return CString();
}

bool CMFXWTBasedOnSizeAndWeightListCtrl::CanEdit(const Cell& cell) const {
    if (IsBandGrid()) return cell.nCol >= 1 && cell.nCol <= 5;
    return (cell.nCol == 1 || cell.nCol == 2) && !GetItemText(cell.nRow, kGroupCol).IsEmpty();
}

// Keys commit without checks, as in every grid, but for Enter on a group's name.
BOOL CMFXWTBasedOnSizeAndWeightListCtrl::HandleKeyDown(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) return FALSE;
    if (pMsg->wParam == VK_RETURN && m_nEditCol == kGroupCol && !IsBandGrid()) {
        const CString strName = CommitEditedCell();
        if (!strName.IsEmpty()) Notify(strName, GridGroupNamed);
        return TRUE;
    }
    if (pMsg->wParam == VK_ESCAPE) {
        const BOOL bCell = CancelCellEdit(), bCombo = CancelComboEdit();
        return bCell || bCombo;
    }
    const Cell edited{m_nEditRow, m_nEditCol};
    const bool bEditing = IsBandGrid() && IsEditorVisible();
    const BOOL bHandled = CMFXListCtrl::HandleKeyDown(pMsg);
    if (bHandled && bEditing && pMsg->wParam != VK_DELETE)
        Notify(GetItemText(edited.nRow, edited.nCol), GridCellCommitted);
    return bHandled;
}

void CMFXWTBasedOnSizeAndWeightListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    IGridParent* const pParent = FindGridParent();
    if (m_vecComboItems.empty() && pParent) pParent->SupplyMaterialGroups(*this);
    const CString strNewGroup = CommitEditedCell();
    const Cell cell = FindCell(point);
    const int nRowBefore = GetSelectedRow();
    if (CanEdit(cell))
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
    if (!strNewGroup.IsEmpty()) Notify(strNewGroup, GridGroupNamed);
    m_nLastHitRow = cell.nRow;
    m_nLastHitCol = cell.nCol;
    NotifyOfSelection(nRowBefore);
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
    const int nRowBefore = GetSelectedRow();
    CMFXListCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
    NotifyOfSelection(nRowBefore);
}
