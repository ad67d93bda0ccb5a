#include "MFXVariableDraftRuleListCtrl.h"

#include "NumberText.h"
#include "RuleParameters.h"
#include "SandCastingRulesApp.h"
#include "XmlNumber.h"
#include "resource.h"

namespace {

constexpr int kBlankWidth = 12;

}  // namespace

BEGIN_MESSAGE_MAP(CMFXVariableDraftRuleListCtrl, CMFXListCtrl)
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

void CMFXVariableDraftRuleListCtrl::InitColumns(const std::vector<CString>& headers, int nWidth,
                                                int nThirdColumnWidth) {
    CreateColumns(headers, {kBlankWidth, nWidth, nThirdColumnWidth >= 1 ? nThirdColumnWidth : nWidth, nWidth},
                  LVCFMT_CENTER);
}

void CMFXVariableDraftRuleListCtrl::InitBandColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {kBlankWidth, 60, 60, 134, 130, 111}, LVCFMT_CENTER);
}

void CMFXVariableDraftRuleListCtrl::InitWideColumns(const std::vector<CString>& headers) {
    CreateColumns(headers, {30, 200, 200, 75, 200}, LVCFMT_LEFT);
}

void CMFXVariableDraftRuleListCtrl::HandleKeyDown(MSG* pMsg, BOOL* pbHandled) {
    *pbHandled = CMFXListCtrl::HandleKeyDown(pMsg);
}

BOOL CMFXVariableDraftRuleListCtrl::IsNotDefaultText(const CString& strText) const {
    return strText != LoadLocalizedString(IDS_DEFAULT) && strText != kDefaultGroup;
}

BOOL CMFXVariableDraftRuleListCtrl::IsNonNegativeText(const CString& strText) const {
    double value = 0.0;
    ParseReal(strText, value);
    return !strText.IsEmpty() && value >= -kTolerance;
}

void CMFXVariableDraftRuleListCtrl::OnLButtonDown(UINT nFlags, CPoint point) {
    CString strText;
    EndCellEdit(strText);  // what is no number is found by the dialog's own check
    const Cell cell = FindCell(point);
    if (cell.nCol >= kFirstBandCol && cell.nCol <= kLastBandCol)
        BeginCellEdit(cell.nRow, cell.nCol, kTextLimit);
    else
        CMFXListCtrl::OnLButtonDown(nFlags, point);
}
