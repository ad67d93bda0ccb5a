#include "MFXUWTRuleListCtrl.h"

#include "SandCastingRulesApp.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr int kMaterialCol = 0;
constexpr int kMinimumCol = 1;
constexpr int kMaximumCol = 2;

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

// Commits the last edited cell, also when its editor is hidden. So every click applies a chosen material
// again until another cell is edited; this is on purpose. FALSE when there is no editor.
BOOL CMFXUWTRuleListCtrl::CommitEditedCell() {
    if (m_nEditCol == kMaterialCol) {
        CommitMaterial();
        return m_comboCell.GetSafeHwnd() != nullptr;
    }
    if (m_nEditCol != kMinimumCol && m_nEditCol != kMaximumCol) return FALSE;
    CommitNumericCell(m_nEditRow, m_nEditCol);
    return IsCellEditActive();
}

void CMFXUWTRuleListCtrl::CommitMaterial() {
    CString strMaterial;
    if (!EndComboEdit(strMaterial, LoadLocalizedString(IDS_ALREADY_IN_TABLE))) return;
    SetCellText(m_nEditRow, kMaterialCol, strMaterial);
    SetCellText(m_nEditRow, kMinimumCol, FindText(m_mapMaterialMin, strMaterial));
    SetCellText(m_nEditRow, kMaximumCol, FindText(m_mapMaterialMax, strMaterial));
}

// Left, Right, Tab, Up and Down commit without the checks of Enter and clicks, on purpose.
BOOL CMFXUWTRuleListCtrl::HandleKeyDown(MSG* pMsg) {
    if (pMsg->message != WM_KEYDOWN) return FALSE;
    switch (pMsg->wParam) {
        case VK_RETURN:
            return CommitEditedCell();
        case VK_ESCAPE: {
            const BOOL bCell = CancelCellEdit(), bCombo = CancelComboEdit();
            return bCell || bCombo;
        }
        case VK_UP:
        case VK_DOWN:
            return m_nEditRow >= 0 && IsCellEditActive() && CMFXListCtrl::HandleKeyDown(pMsg);
        case VK_DELETE:
            return !IsCellEditActive() && CMFXListCtrl::HandleKeyDown(pMsg);
        default:
            return CMFXListCtrl::HandleKeyDown(pMsg);
    }
}

void CMFXUWTRuleListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    CommitEditedCell();
    const Cell cell = FindCell(point);
    const bool bLimit = cell.nCol == kMinimumCol || cell.nCol == kMaximumCol;
    if (bLimit && !GetItemText(cell.nRow, kMaterialCol).IsEmpty())
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
}

void CMFXUWTRuleListCtrl::OnLButtonDblClk(UINT nFlags, CPoint point) {
    const Cell cell = FindCell(point);
    if (cell.nCol == kMaterialCol)
        BeginComboEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDblClk(nFlags, point);
}
