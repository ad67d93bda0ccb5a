#include "WTBasedOnSizeAndWeightDlg.h"

#include "BandTableTexts.h"
#include "DialogControls.h"
#include "DialogTexts.h"
#include "EditMaterialDBDlg.h"
#include "HandleMessage.h"
#include "LengthUnitCombo.h"
#include "MassUnits.h"
#include "MaterialGroups.h"
#include "RuleDialogs.h"
#include "SandCastingRulesApp.h"
#include "SizeAndWeightGrids.h"
#include "WTBasedOnCastSizeAndWeightRule.h"
#include "resource.h"

#include <algorithm>

using Grid = CMFXWTBasedOnSizeAndWeightListCtrl;

CMFXWTBasedOnSizeAndWeightDlg::CMFXWTBasedOnSizeAndWeightDlg(CMFXWTBasedOnCastSizeAndWeightRule* pRule,
                                                             CWnd* pParent)
    : CMFXRuleDlgBase(IDD_SIZE_WEIGHT, pRule ? pRule->m_nRuleId : 0, GetHelpFilePath(), pParent),
      m_pRule(pRule) {}

void CMFXWTBasedOnSizeAndWeightDlg::DoDataExchange(CDataExchange* pDX) {
    CMFXRuleDlgBase::DoDataExchange(pDX);
    BindControl(pDX, IDC_SIZE_WEIGHT_DATABASE, m_comboDatabase);
    BindControl(pDX, IDC_SIZE_WEIGHT_GROUPS, m_listGroups);
    BindControl(pDX, IDC_SIZE_WEIGHT_BANDS, m_gridBands);
    BindControl(pDX, IDC_SIZE_WEIGHT_LENGTH_UNIT, m_comboLengthUnit);
    BindControl(pDX, IDC_SIZE_WEIGHT_PICTURE, m_picture);
    BindControl(pDX, IDC_SIZE_WEIGHT_MASS_UNIT, m_comboMassUnit);
    BindControl(pDX, IDC_SIZE_WEIGHT_CURRENT_GROUP, m_staticCurrentGroup);
    BindControl(pDX, IDOK, m_buttonOk);
    BindControl(pDX, IDC_SIZE_WEIGHT_MASS_CAPTION, m_staticMassCaption);
    BindControl(pDX, IDC_SIZE_WEIGHT_OK_HINT, m_staticOkHint);
}

BEGIN_MESSAGE_MAP(CMFXWTBasedOnSizeAndWeightDlg, CMFXRuleDlgBase)
    ON_WM_NCLBUTTONDOWN()
    ON_BN_CLICKED(IDC_EDIT_MATERIALS, &CMFXWTBasedOnSizeAndWeightDlg::OnEditMaterials)
    ON_CBN_SELCHANGE(IDC_SIZE_WEIGHT_MASS_UNIT, &CMFXWTBasedOnSizeAndWeightDlg::OnMassUnitChange)
END_MESSAGE_MAP()

BOOL CMFXWTBasedOnSizeAndWeightDlg::OnInitDialog() {
    CMFXRuleDlgBase::OnInitDialog();
    if (m_pRule) SetWindowText(m_pRule->m_strDisplayName);
    if (!m_pRule || !HasControls()) return RefuseToEdit();
    if (const UINT nReason = ShowDatabase()) return RefuseToEdit(nReason);
    SetUpGrids();
    if (!m_groups.Load(*m_pRule)) return RefuseToEdit();
    OfferGroups();
    m_bEditable = true;
    SetUpUnits();
    ShowPicture(m_picture, IDB_SIZE_WEIGHT_PICTURE);
    ShowGroups(m_listGroups, m_groups.GetLoadedNames());
    ShowCurrentGroup();
    UpdateMassCaption();
    m_listGroups.SetFocus();
    return FALSE;  // the focus is set
}

// A key belongs to the grid that has the focus.
BOOL CMFXWTBasedOnSizeAndWeightDlg::PreTranslateMessage(MSG* pMsg) {
    CMFXListCtrl* const pGrid = FindFocusedGrid();
    if (!pGrid || !pGrid->HandleKeyDown(pMsg)) return CMFXRuleDlgBase::PreTranslateMessage(pMsg);
    if (pMsg->wParam == VK_DELETE)
        HandleMessage(m_hWnd, pMsg->message, [&] {
            OnRowsDeleted(*pGrid);
            return 0;
        });
    return TRUE;
}

void CMFXWTBasedOnSizeAndWeightDlg::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CMFXRuleDlgBase::OnNcLButtonDown(nHitTest, point);
}

void CMFXWTBasedOnSizeAndWeightDlg::OnGridNotify(const CString& strText, int nCode) {
    if (!m_bEditable) return;
    switch (nCode) {
        case GridGroupNamed:
            return NewGroup(strText);
        case GridGroupSelected:
        case IDC_SIZE_WEIGHT_GROUPS:
            return SelectGroup(strText);
        case GridCellTyped:
            return UpdateOkButton();
        case GridCellCommitted:
        case IDC_SIZE_WEIGHT_BANDS:
            return ValidateWhileTyping();
    }
}

// The band grid has no drop-down list.
void CMFXWTBasedOnSizeAndWeightDlg::SupplyMaterialGroups(CMFXListCtrl& grid) {
    if (&grid == &m_listGroups) grid.SetComboItems(m_materialGroups);
}

void CMFXWTBasedOnSizeAndWeightDlg::OnEditMaterials() {
    if (!m_listGroups.EndEditing()) return;
    CommitPendingCell();
    EditMaterialsFrom(*this);
}

void CMFXWTBasedOnSizeAndWeightDlg::UpdateListCtrl() {
    m_materialGroups.clear();
    ListMaterialGroups(m_materialGroups);
    OfferGroups();
}

// A drop-down list that lacks a group's name would put another in its place.
void CMFXWTBasedOnSizeAndWeightDlg::OfferGroups() {
    for (const auto& [strName, bands] : m_groups.GetAll())
        if (std::ranges::find(m_materialGroups, strName) == m_materialGroups.end())
            m_materialGroups.push_back(strName);
    m_listGroups.SetComboItems(m_materialGroups);
}

void CMFXWTBasedOnSizeAndWeightDlg::OnMassUnitChange() {
    if (!m_bEditable) return;
    CommitPendingCell();
    m_groups.ChangeMassUnit(m_comboMassUnit.GetCurSel() + MassMilligram);
    WriteBands(m_gridBands, m_groups.GetRows());
    UpdateMassCaption();
}

void CMFXWTBasedOnSizeAndWeightDlg::OnOK() {
    if (!m_bEditable || !LeaveCurrentGroup() || !m_listGroups.EndEditing() || !EveryGroupHasBands()) return;
    if (const CString strFlawed = m_groups.FindFlawedGroup(); !strFlawed.IsEmpty()) {
        m_groups.SetCurrent(strFlawed);
        ShowCurrentGroup();
        return ShowFlaw(m_groups.Check());
    }
    if (!m_groups.HasUsableBand()) return ShowFlaw({SizeAndWeightFlaw::NoBands});
    m_groups.Store(*m_pRule);
    StoreLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);
    CMFXRuleDlgBase::OnOK();
}

bool CMFXWTBasedOnSizeAndWeightDlg::HasControls() const {
    return HaveWindows({&m_listGroups, &m_gridBands, &m_comboDatabase, &m_comboLengthUnit, &m_comboMassUnit,
                        &m_buttonOk, &m_staticMassCaption, &m_staticCurrentGroup, &m_staticOkHint});
}

// Returns the id of the text that says what is missing, 0 for nothing.
UINT CMFXWTBasedOnSizeAndWeightDlg::ShowDatabase() {
    CString strName;
    if (const UINT nMissing = FindDatabaseName(strName)) return nMissing;
    m_comboDatabase.AddString(strName);
    m_comboDatabase.SetCurSel(0);
    return ListMaterialGroups(m_materialGroups) ? 0 : IDS_DATABASE_NO_DATA;
}

void CMFXWTBasedOnSizeAndWeightDlg::SetUpGrids() {
    for (CMFXListCtrl* const pGrid : {&m_listGroups, &m_gridBands}) {
        pGrid->SetExtendedStyle(CMFXListCtrl::kExtendedStyle);
        pGrid->SetFont(GetFont());
    }
    std::vector<CString> headings{L""};
    for (const UINT nHeading :
         {IDS_SIZE_WEIGHT_SIZE_FROM, IDS_SIZE_WEIGHT_SIZE_TO, IDS_SIZE_WEIGHT_WEIGHT_FROM,
          IDS_SIZE_WEIGHT_WEIGHT_TO, IDS_SIZE_WEIGHT_THICKNESS_HEADING})
        headings.push_back(LoadLocalizedString(nHeading));
    m_gridBands.InitBandColumns(headings);
    m_listGroups.InitGroupColumns({LoadLocalizedString(IDS_SIZE_WEIGHT_GROUPS)});
}

void CMFXWTBasedOnSizeAndWeightDlg::SetUpUnits() {
    FillLengthUnits(m_comboLengthUnit);
    SelectLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);
    for (const wchar_t* pszLabel : kMassUnitLabels) m_comboMassUnit.AddString(pszLabel);
    m_comboMassUnit.SetCurSel(m_groups.GetMassUnit() - MassMilligram);
}

CMFXListCtrl* CMFXWTBasedOnSizeAndWeightDlg::FindFocusedGrid() {
    for (CMFXListCtrl* const pGrid : {&m_listGroups, &m_gridBands})
        if (pGrid->HasFocus()) return pGrid;
    return nullptr;
}

// Without a group there is nothing to type bands for.
void CMFXWTBasedOnSizeAndWeightDlg::ShowCurrentGroup() {
    const CString& strGroup = m_groups.GetCurrent();
    m_staticCurrentGroup.SetWindowText(strGroup.IsEmpty() ? LoadLocalizedString(IDS_SIZE_WEIGHT_NO_GROUP)
                                                          : strGroup);
    SelectGroupRow(m_listGroups, strGroup);
    ShowBands(m_gridBands, m_groups.GetRows());
    m_gridBands.EnableWindow(!strGroup.IsEmpty());
    UpdateOkButton();
}

void CMFXWTBasedOnSizeAndWeightDlg::CommitPendingCell() {
    const int nCol = m_gridBands.GetEditCol();
    if (nCol >= Grid::kFirstBandCol && nCol <= Grid::kLastBandCol)
        m_gridBands.CommitCell(m_gridBands.GetEditRow(), nCol);
    m_groups.TakeRows(ReadBandRows(m_gridBands));
    UpdateOkButton();
}

// False, after a message, when the group has a flaw.
bool CMFXWTBasedOnSizeAndWeightDlg::LeaveCurrentGroup() {
    CommitPendingCell();
    const SizeAndWeightResult result = m_groups.Check();
    if (result.flaw == SizeAndWeightFlaw::None) return true;
    ShowFlaw(result);
    return false;
}

// A row that is not finished yet brings no message.
void CMFXWTBasedOnSizeAndWeightDlg::ValidateWhileTyping() {
    const SizeAndWeightResult result = m_groups.TakeRowsWhileTyping(ReadBandRows(m_gridBands));
    UpdateOkButton();
    if (result.flaw != SizeAndWeightFlaw::None && result.flaw != SizeAndWeightFlaw::IncompleteWhileTyping)
        ShowFlaw(result);
}

void CMFXWTBasedOnSizeAndWeightDlg::NewGroup(const CString& strName) {
    const std::vector<CString> listed = ReadGroups(m_listGroups);
    if (!LeaveCurrentGroup()) {  // the list goes back to the groups that there are
        m_listGroups.SetCellText(m_listGroups.GetEditRow(), Grid::kGroupCol, m_groups.FindUnlisted(listed));
        return SelectGroupRow(m_listGroups, m_groups.GetCurrent());
    }
    const auto naming = m_groups.NameGroup(strName, listed);
    if (naming == SizeAndWeightGroups::Naming::Ignored) return;
    if (naming == SizeAndWeightGroups::Naming::AlreadyThere) {
        ShowMessage(FormattedText(IDS_SIZE_WEIGHT_GROUP_EXISTS, strName), MB_ICONEXCLAMATION);
    }
    ShowCurrentGroup();
}

void CMFXWTBasedOnSizeAndWeightDlg::SelectGroup(const CString& strName) {
    if (strName.IsEmpty() || strName == LoadLocalizedString(IDS_DEFAULT) || strName == kDefaultGroup) return;
    if (!LeaveCurrentGroup()) return SelectGroupRow(m_listGroups, m_groups.GetCurrent());
    m_groups.SetCurrent(strName);
    ShowCurrentGroup();
}

void CMFXWTBasedOnSizeAndWeightDlg::OnRowsDeleted(const CMFXListCtrl& grid) {
    CommitPendingCell();
    if (&grid == &m_listGroups && m_groups.EraseUnlisted(ReadGroups(m_listGroups))) {
        std::vector<CString> names;
        for (const auto& [strGroup, bands] : m_groups.GetAll()) names.push_back(strGroup);
        ShowGroups(m_listGroups, names);
        ShowCurrentGroup();
    }
}

// What is being typed counts, or OK would stay grey under the last value. A line of text says what OK needs.
void CMFXWTBasedOnSizeAndWeightDlg::UpdateOkButton() {
    const bool bUsable = m_groups.HasUsableBand(ReadBandRows(m_gridBands));
    m_buttonOk.EnableWindow(bUsable);
    m_staticOkHint.ShowWindow(bUsable ? SW_HIDE : SW_SHOW);
}

void CMFXWTBasedOnSizeAndWeightDlg::UpdateMassCaption() {
    CString strCaption;
    strCaption.Format(LoadLocalizedString(IDS_SIZE_WEIGHT_MASS_CAPTION), m_strHeading.GetString(),
                      GetMassUnitLabel(m_groups.GetMassUnit()).GetString());
    m_staticMassCaption.SetWindowText(strCaption);
}

// False, after a message, when there are empty groups.
bool CMFXWTBasedOnSizeAndWeightDlg::EveryGroupHasBands() {
    CString strNames, strMessage;
    for (const CString& strName : m_groups.GetGroupsWithoutBands()) strNames += L"\r\n" + strName;
    if (strNames.IsEmpty()) return true;
    strMessage.Format(LoadLocalizedString(IDS_SIZE_WEIGHT_EMPTY_GROUPS), strNames.GetString());
    ShowMessage(strMessage, MB_ICONINFORMATION);
    return false;
}

// Then the cursor stands in the cell at fault.
void CMFXWTBasedOnSizeAndWeightDlg::ShowFlaw(const SizeAndWeightResult& result) {
    CString strLengthUnit = m_strLengthUnit;
    if (m_comboLengthUnit.GetCurSel() >= 0) m_comboLengthUnit.GetWindowText(strLengthUnit);
    ShowMessage(BandFlawText(result, strLengthUnit, GetMassUnitLabel(m_groups.GetMassUnit())),
                MB_ICONINFORMATION);
    m_gridBands.BeginCellEdit(result.nRow - 1, Grid::kFirstBandCol + static_cast<int>(result.cell),
                              CMFXListCtrl::kTextLimit);
}

void RunSizeAndWeightDialog(CMFXWTBasedOnCastSizeAndWeightRule& rule) {
    CMFXWTBasedOnSizeAndWeightDlg dialog(&rule, nullptr);
    dialog.m_strLengthUnit = GetLengthUnitCaption(rule.m_nLengthUnit);
    dialog.DoModal();
}
