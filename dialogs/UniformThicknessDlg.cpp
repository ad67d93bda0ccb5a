#include "UniformThicknessDlg.h"

#include "DialogControls.h"
#include "DialogTexts.h"
#include "EditMaterialDBDlg.h"
#include "LengthUnitCombo.h"
#include "MaterialChoices.h"
#include "MaterialLimitsTexts.h"
#include "MaterialTables.h"
#include "NumberText.h"
#include "RuleDialogs.h"
#include "SandCastingRulesApp.h"
#include "UniformThicknessRule.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr std::size_t kRows = 200;

}  // namespace

CMFXUniformThicknessDlg::CMFXUniformThicknessDlg(CWnd* pParent, CMFXUniformThicknessRule* pRule)
    : CMFXRuleDlgBase(IDD_UNIFORM, pRule ? pRule->m_nRuleId : 0, GetHelpFilePath(), pParent),
      m_pRule(pRule),
      m_minimum{kThicknessMinId, {}, {}},
      m_maximum{kThicknessMaxId, {}, {}} {}

void CMFXUniformThicknessDlg::DoDataExchange(CDataExchange* pDX) {
    CMFXRuleDlgBase::DoDataExchange(pDX);
    BindControl(pDX, IDC_UNIFORM_PICTURE, m_picture);
    BindControl(pDX, IDC_UNIFORM_COMMON, m_radioCommon);
    BindControl(pDX, IDC_UNIFORM_BY_MATERIAL, m_radioByMaterial);
    BindControl(pDX, IDC_UNIFORM_MINIMUM_ON, m_minimum.check);
    BindControl(pDX, IDC_UNIFORM_MINIMUM, m_minimum.edit);
    BindControl(pDX, IDC_UNIFORM_MAXIMUM_ON, m_maximum.check);
    BindControl(pDX, IDC_UNIFORM_MAXIMUM, m_maximum.edit);
    BindControl(pDX, IDC_UNIFORM_GROUP, m_comboGroup);
    BindControl(pDX, IDC_UNIFORM_MATERIALS, m_gridMaterials);
}

BEGIN_MESSAGE_MAP(CMFXUniformThicknessDlg, CMFXRuleDlgBase)
    ON_WM_NCLBUTTONDOWN()
    ON_BN_CLICKED(IDC_UNIFORM_DELETE_ROWS, &CMFXUniformThicknessDlg::OnDeleteRows)
    ON_BN_CLICKED(IDC_EDIT_MATERIALS, &CMFXUniformThicknessDlg::OnEditMaterials)
    ON_CBN_SELCHANGE(IDC_UNIFORM_GROUP, &CMFXUniformThicknessDlg::OnGroupChange)
END_MESSAGE_MAP()

BOOL CMFXUniformThicknessDlg::OnInitDialog() {
    CMFXRuleDlgBase::OnInitDialog();
    if (!HasControls()) return RefuseToEdit();
    ShowCommonLimit(m_minimum, IDC_UNIFORM_MINIMUM_UNIT);
    ShowCommonLimit(m_maximum, IDC_UNIFORM_MAXIMUM_UNIT);
    ShowMaterials();
    SetUpGroups();
    UpdateListCtrl();
    SetMaterialFlagForRule(m_pRule->AreLimitsByMaterial());
    ShowPicture(m_picture, IDB_UNIFORM_PICTURE);
    return TRUE;
}

// The grid has the keys only while it has the focus: the boxes for numbers need them, too.
BOOL CMFXUniformThicknessDlg::PreTranslateMessage(MSG* pMsg) {
    if (m_gridMaterials.HasFocus() && m_gridMaterials.HandleKeyDown(pMsg)) return TRUE;
    return CMFXRuleDlgBase::PreTranslateMessage(pMsg);
}

// Deletes the selected rows, or else the row that is being edited.
void CMFXUniformThicknessDlg::OnDeleteRows() {
    if (!m_gridMaterials.DeleteSelectedRows() && m_gridMaterials.IsEditing())
        DeleteRow(m_gridMaterials.GetEditRow());
}

void CMFXUniformThicknessDlg::OnEditMaterials() {
    if (m_gridMaterials.EndEditing()) EditMaterialsFrom(*this);
}

void CMFXUniformThicknessDlg::OnGroupChange() {
    m_gridMaterials.EndEditing();
    UpdateListCtrl();
}

void CMFXUniformThicknessDlg::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CMFXRuleDlgBase::OnNcLButtonDown(nHitTest, point);
}

// Stores nothing unless all of it is right.
void CMFXUniformThicknessDlg::OnOK() {
    if (!HasControls() || !m_gridMaterials.EndEditing() || !CheckCommonLimits()) return;
    MaterialLimitsResult materials;
    if (!CheckMaterials(materials)) return;
    StoreCommonLimit(m_minimum);
    StoreCommonLimit(m_maximum);
    m_pRule->SetLimitsByMaterial(materials.limits, IsByMaterial());
    CMFXRuleDlgBase::OnOK();
}

bool CMFXUniformThicknessDlg::HasControls() const {
    if (!m_pRule || !m_pRule->FindParameterInArray(kThicknessMinId) ||
        !m_pRule->FindParameterInArray(kThicknessMaxId))
        return false;
    return HaveWindows({&m_radioCommon, &m_radioByMaterial, &m_minimum.check, &m_minimum.edit,
                        &m_maximum.check, &m_maximum.edit, &m_comboGroup, &m_gridMaterials});
}

void CMFXUniformThicknessDlg::ShowCommonLimit(CommonLimit& limit, int nUnitControl) {
    const CMfxParamStorage& parameter = *m_pRule->FindParameterInArray(limit.nParamId);
    const MfxArray<double>& values = parameter.GetValues<double>();
    limit.check.SetCheck(parameter.m_bStatus ? BST_CHECKED : BST_UNCHECKED);
    limit.edit.SetLimitText(CMFXListCtrl::kTextLimit);
    if (!values.IsEmpty()) limit.edit.SetWindowText(FormatDouble(values[0]));
    if (CWnd* const pUnit = GetDlgItem(nUnitControl)) pUnit->SetWindowText(m_strLengthUnit);
}

void CMFXUniformThicknessDlg::ShowMaterials() {
    m_gridMaterials.SetExtendedStyle(CMFXListCtrl::kExtendedStyle);
    m_gridMaterials.InitColumns({LoadLocalizedString(IDS_UNIFORM_MATERIAL_HEADING),
                                 HeadingWithUnit(IDS_UNIFORM_MINIMUM_HEADING, m_strLengthUnit),
                                 HeadingWithUnit(IDS_UNIFORM_MAXIMUM_HEADING, m_strLengthUnit)});
    const std::vector<MaterialLimitTexts> materials = m_pRule->GetLimitsByMaterial();
    // A table that is longer than the grid makes the grid longer.
    m_gridMaterials.MakeEmptyRows(static_cast<int>(std::max(kRows, materials.size())));
    int nRow = 0;
    for (const auto& [strMaterial, strMinimum, strMaximum] : materials) {
        m_gridMaterials.SetCellText(nRow, MaterialColumn::Material, strMaterial);
        m_gridMaterials.SetCellText(nRow, MaterialColumn::Minimum, strMinimum);
        m_gridMaterials.SetCellText(nRow++, MaterialColumn::Maximum, strMaximum);
    }
}

// A category without groups has no choice of them.
void CMFXUniformThicknessDlg::SetUpGroups() {
    const auto groups = GetMaterialGroups(m_pRule->GetRuleCategoryEnum());
    for (const wchar_t* const pszGroup : groups) m_comboGroup.AddString(pszGroup);
    m_comboGroup.SetCurSel(0);
    AddToolTip(m_comboGroup, LoadLocalizedString(IDS_UNIFORM_GROUP_TIP));
    if (!groups.empty()) return;
    for (const int nControlId : {IDC_UNIFORM_GROUP_LABEL, IDC_UNIFORM_GROUP})
        if (CWnd* const pControl = GetDlgItem(nControlId)) pControl->ShowWindow(SW_HIDE);
}

// A choice that was made before must not look up its limits among the new ones.
void CMFXUniformThicknessDlg::UpdateListCtrl() {
    m_gridMaterials.ForgetEditedCell();
    CString strGroup;
    m_comboGroup.GetWindowText(strGroup);
    std::vector<CString> names, minimums, maximums;
    std::vector<MaterialLimitTexts> choices =
        ListMaterialChoices(m_pRule->GetRuleCategoryEnum(), strGroup, m_pRule->m_nLengthUnit);
    AddMissingChoices(choices, ReadMaterials());
    for (const MaterialLimitTexts& choice : choices) {
        names.push_back(choice.strMaterial);
        minimums.push_back(choice.strMinimum);
        maximums.push_back(choice.strMaximum);
    }
    m_gridMaterials.SetComboItems(names);
    m_gridMaterials.ForgetMaterialDefaults();
    m_gridMaterials.SetMaterialDefaults(names, minimums, maximums);
}

void CMFXUniformThicknessDlg::DeleteRow(int nRow) {
    if (nRow < 0) return;
    m_gridMaterials.ForgetEditedCell();
    for (const int nCol : {MaterialColumn::Material, MaterialColumn::Minimum, MaterialColumn::Maximum})
        m_gridMaterials.SetCellText(nRow, nCol, L"");
}

void CMFXUniformThicknessDlg::SetMaterialFlagForRule(bool bMaterials) {
    m_radioByMaterial.SetCheck(bMaterials ? BST_CHECKED : BST_UNCHECKED);
    m_radioCommon.SetCheck(bMaterials ? BST_UNCHECKED : BST_CHECKED);
}

bool CMFXUniformThicknessDlg::IsByMaterial() const {
    return m_radioByMaterial.GetCheck() == BST_CHECKED;
}

// A limit that is switched off may be anything.
bool CMFXUniformThicknessDlg::CheckCommonLimits() {
    double values[2] = {};
    int nOn = 0;
    for (CommonLimit* const pLimit : {&m_minimum, &m_maximum}) {
        if (pLimit->check.GetCheck() != BST_CHECKED) continue;
        CString strText;
        pLimit->edit.GetWindowText(strText);
        if (!ReadPositiveNumber(strText, values[nOn++])) {
            const UINT nName = static_cast<UINT>(pLimit->nParamId);
            ShowMessage(FormattedText(IDS_UNIFORM_NO_NUMBER, LoadLocalizedString(nName)), MB_ICONINFORMATION);
            pLimit->edit.SetFocus();
            return false;
        }
    }
    if (nOn < 2 || values[0] <= values[1] + kTolerance) return true;
    ShowMessage(LoadLocalizedString(IDS_MAXIMUM_BELOW_MINIMUM), MB_ICONINFORMATION);
    m_maximum.edit.SetFocus();
    return false;
}

std::vector<MaterialLimitTexts> CMFXUniformThicknessDlg::ReadMaterials() const {
    std::vector<MaterialLimitTexts> rows;
    rows.reserve(static_cast<std::size_t>(m_gridMaterials.GetItemCount()));
    for (int nRow = 0; nRow < m_gridMaterials.GetItemCount(); ++nRow)
        rows.push_back({m_gridMaterials.GetItemText(nRow, MaterialColumn::Material),
                        m_gridMaterials.GetItemText(nRow, MaterialColumn::Minimum),
                        m_gridMaterials.GetItemText(nRow, MaterialColumn::Maximum)});
    return rows;
}

bool CMFXUniformThicknessDlg::CheckMaterials(MaterialLimitsResult& result) {
    result = CheckMaterialLimits(ReadMaterials());
    if (result.flaw != MaterialLimitsFlaw::None) {
        ShowFlaw(result);
        return false;
    }
    if (!result.limits.empty() || !IsByMaterial()) return true;
    ShowMessage(LoadLocalizedString(IDS_UNIFORM_NO_MATERIALS), MB_ICONINFORMATION);
    m_gridMaterials.SetFocus();
    return false;
}

// Then the cursor stands in the cell at fault.
void CMFXUniformThicknessDlg::ShowFlaw(const MaterialLimitsResult& result) {
    ShowMessage(MaterialFlawText(result), MB_ICONINFORMATION);
    if (result.column == MaterialColumn::Material)
        m_gridMaterials.BeginComboEdit(result.nRow - 1, result.column, CMFXListCtrl::kTextLimit);
    else
        m_gridMaterials.BeginCellEdit(result.nRow - 1, result.column, CMFXListCtrl::kTextLimit);
}

// A limit that is switched off and has no number keeps the one it had.
void CMFXUniformThicknessDlg::StoreCommonLimit(const CommonLimit& limit) {
    const bool bOn = limit.check.GetCheck() == BST_CHECKED;
    CString strText;
    limit.edit.GetWindowText(strText);
    double value = 0.0;
    if (ReadPositiveNumber(strText, value))
        m_pRule->SetCommonLimit(limit.nParamId, value, bOn);
    else
        m_pRule->FindParameterInArray(limit.nParamId)->m_bStatus = bOn;
}

void RunUniformThicknessDialog(CMFXUniformThicknessRule& rule) {
    CMFXUniformThicknessDlg dialog(nullptr, &rule);
    dialog.m_strLengthUnit = GetLengthUnitCaption(rule.m_nLengthUnit);
    dialog.DoModal();
}
