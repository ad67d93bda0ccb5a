#include "SCWTVariationDlg.h"

#include "LengthUnitCombo.h"
#include "NumberText.h"
#include "RuleDialogs.h"
#include "RuleParameters.h"
#include "SCWTVariationRule.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

CMFXSCWTVariationDlg::CMFXSCWTVariationDlg(CMFXSCWTVariationRule* pRule, CWnd* pParent)
    : CMFXRuleDlgBase(IDD_VARIATION, pRule ? pRule->m_nRuleId : 0, GetHelpFilePath(), pParent),
      m_pRule(pRule) {}

void CMFXSCWTVariationDlg::DoDataExchange(CDataExchange* pDX) {
    CMFXRuleDlgBase::DoDataExchange(pDX);
    BindControl(pDX, IDC_VARIATION_VALUE, m_editVariation);
    BindControl(pDX, IDC_VARIATION_LENGTH_UNIT, m_comboLengthUnit);
}

BEGIN_MESSAGE_MAP(CMFXSCWTVariationDlg, CMFXRuleDlgBase)
    ON_WM_NCLBUTTONDOWN()
END_MESSAGE_MAP()

BOOL CMFXSCWTVariationDlg::OnInitDialog() {
    CMFXRuleDlgBase::OnInitDialog();
    if (m_comboLengthUnit.GetSafeHwnd()) FillLengthUnits(m_comboLengthUnit);
    const CMfxParamStorage* pVariation = FindVariation();
    if (!pVariation || !m_editVariation.GetSafeHwnd() || !m_comboLengthUnit.GetSafeHwnd())
        return RefuseToEdit();
    const MfxArray<double>& values = pVariation->GetValues<double>();
    constexpr UINT kLongestNumber = 260;  // a double could not hold a number of many more digits
    m_editVariation.SetLimitText(kLongestNumber);
    if (!values.IsEmpty()) m_editVariation.SetWindowText(FormatDouble(values[0]));
    SelectLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);
    return TRUE;
}

void CMFXSCWTVariationDlg::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CMFXRuleDlgBase::OnNcLButtonDown(nHitTest, point);
}

// Stores the unit even when the value is refused afterwards; this is on purpose.
void CMFXSCWTVariationDlg::OnOK() {
    if (!FindVariation() || !m_comboLengthUnit.GetSafeHwnd()) return;
    StoreLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);  // the number has no unit and stays
    if (m_editVariation.GetSafeHwnd() && StoreVariation()) CMFXRuleDlgBase::OnOK();
}

CMfxParamStorage* CMFXSCWTVariationDlg::FindVariation() const {
    return m_pRule ? m_pRule->FindParameterInArray(kVariationId) : nullptr;
}

// Refuses a zero: shows a message and returns false.
bool CMFXSCWTVariationDlg::StoreVariation() {
    CString strValue;
    m_editVariation.GetWindowText(strValue);
    const double value = ParseDouble(strValue);
    if (value == 0.0) {
        MessageBox(LoadLocalizedString(IDS_VALUE_IS_ZERO), L"");
        return false;
    }
    MfxArray<double>& values = FindVariation()->GetValues<double>();
    if (values.IsEmpty()) values.Add(0.0);
    // The box shows six decimals. A text that was not changed must not cut the value's other digits.
    if (strValue != FormatDouble(values[0])) values[0] = value;
    return true;
}

void RunVariationDialog(CMFXSCWTVariationRule& rule) {
    CMFXSCWTVariationDlg(&rule, nullptr).DoModal();
}
