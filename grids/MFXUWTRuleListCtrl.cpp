#include "MFXUWTRuleListCtrl.h"

#include "MaterialLimitsCheck.h"

#include <algorithm>

namespace {

CString FindText(const std::map<CString, CString>& texts, const CString& strKey) {
    const auto found = texts.find(strKey);
    return found != texts.end() ? found->second : CString();
}

}  // namespace

BEGIN_MESSAGE_MAP(CMFXUWTRuleListCtrl, CMFXListCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

void CMFXUWTRuleListCtrl::InitColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {200, 120}, LVCFMT_LEFT);
}

void CMFXUWTRuleListCtrl::SetMaterialDefaults(const std::vector<CString>& names,
                                              const std::vector<CString>& minimums,
                                              const std::vector<CString>& maximums) {
    const std::size_t nCount = std::min({names.size(), minimums.size(), maximums.size()});
    for (std::size_t i = 0; i < nCount; ++i) {
        m_mapMaterialMin.insert({names[i], minimums[i]});
        m_mapMaterialMax.insert({names[i], maximums[i]});
    }
}

void CMFXUWTRuleListCtrl::ForgetMaterialDefaults() {
    m_mapMaterialMin.clear();
    m_mapMaterialMax.clear();
}

void CMFXUWTRuleListCtrl::BeginRowEdit(int nRow) {
    BeginComboEdit(nRow, MaterialColumn::Material, kTextLimit);
}

// Commits the last edited cell, also when its editor is hidden. So every click applies a chosen material
// again until another cell is edited; this is on purpose. FALSE when there is no editor.
BOOL CMFXUWTRuleListCtrl::CommitEditedCell() {
    if (m_nEditCol == MaterialColumn::Material) {
        CommitCombo();
        return m_comboCell.GetSafeHwnd() != nullptr;
    }
    if (m_nEditCol != MaterialColumn::Minimum && m_nEditCol != MaterialColumn::Maximum) return FALSE;
    CommitNumericCell(m_nEditRow, m_nEditCol);
    return IsCellEditActive();
}

BOOL CMFXUWTRuleListCtrl::CommitCombo() {
    if (!CMFXListCtrl::CommitCombo()) return FALSE;
    const CString strMaterial = GetItemText(m_nEditRow, MaterialColumn::Material);
    SetCellText(m_nEditRow, MaterialColumn::Minimum, FindText(m_mapMaterialMin, strMaterial));
    SetCellText(m_nEditRow, MaterialColumn::Maximum, FindText(m_mapMaterialMax, strMaterial));
    return TRUE;
}

// Left, Right, Tab, Up and Down commit without the checks of Enter and clicks, on purpose.
BOOL CMFXUWTRuleListCtrl::HandleKey(WPARAM nKey) {
    switch (nKey) {
        case VK_RETURN:
            return CommitEditedCell();
        case VK_UP:
        case VK_DOWN:
            return IsCellEditActive() && CMFXListCtrl::HandleKey(nKey);
        case VK_DELETE:
            return !IsCellEditActive() && CMFXListCtrl::HandleKey(nKey);
        default:
            return CMFXListCtrl::HandleKey(nKey);
    }
}

void CMFXUWTRuleListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    CommitEditedCell();
    const Cell cell = FindCell(point);
    const bool bLimit = cell.nCol == MaterialColumn::Minimum || cell.nCol == MaterialColumn::Maximum;
    if (bLimit && !GetItemText(cell.nRow, MaterialColumn::Material).IsEmpty())
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
}

void CMFXUWTRuleListCtrl::OnLButtonDblClk(UINT nFlags, CPoint point) {
    const Cell cell = FindCell(point);
    if (cell.nCol == MaterialColumn::Material)
        BeginComboEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDblClk(nFlags, point);
}
