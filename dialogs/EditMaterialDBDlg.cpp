#include "EditMaterialDBDlg.h"

#include "DialogControls.h"
#include "DialogTexts.h"
#include "LengthUnitCombo.h"
#include "MaterialFiles.h"
#include "MaterialGroups.h"
#include "Text.h"
#include "UnitNames.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr long kHelpContext = 7010;
constexpr UINT kLongestName = 260;  // that the database takes

// What can't be used while the database can't be written, and the items that must be shown for it.
enum class Needs { Nothing, AnyItem, GroupOrMaterial, Material };
constexpr struct {
    int nControlId;
    Needs needs;
} kEditingControls[] = {{IDC_MATERIALS_NAME, Needs::GroupOrMaterial},
                        {IDC_MATERIALS_DENSITY, Needs::Material},
                        {IDC_MATERIALS_MINIMUM, Needs::Material},
                        {IDC_MATERIALS_MAXIMUM, Needs::Material},
                        {IDC_MATERIALS_DELETE, Needs::GroupOrMaterial},
                        {IDC_MATERIALS_NEW_GROUP, Needs::AnyItem},
                        {IDC_MATERIALS_IMPORT, Needs::Nothing},
                        {IDC_MATERIALS_NEW_MATERIAL, Needs::GroupOrMaterial},
                        {IDOK, Needs::Nothing}};

UINT TextOf(MaterialFlaw flaw) {
    switch (flaw) {
        case MaterialFlaw::NoName:
            return IDS_MATERIALS_NO_NAME;
        case MaterialFlaw::NameTwice:
            return IDS_MATERIALS_NAME_TWICE;
        case MaterialFlaw::NameHasSemicolon:
            return IDS_MATERIALS_NAME_SEMICOLON;
        case MaterialFlaw::MaximumBelowMinimum:
            return IDS_MAXIMUM_BELOW_MINIMUM;
        default:
            return IDS_MATERIALS_NO_NUMBER;
    }
}

// "kg/m³", the name behind the one that can be typed anywhere.
CString LabelOf(const UnitName& unit) {
    const CString strNames = FromUtf8(unit.names);
    return strNames.Mid(strNames.ReverseFind(L' ') + 1);
}

}  // namespace

CEditMaterialDBDlg::CEditMaterialDBDlg(CWnd* pParent)
    : CMFXRuleDlgBase(IDD_MATERIALS, kHelpContext, GetHelpFilePath(), pParent) {}

void CEditMaterialDBDlg::DoDataExchange(CDataExchange* pDX) {
    CMFXRuleDlgBase::DoDataExchange(pDX);
    BindControl(pDX, IDC_MATERIALS_TREE, m_tree);
    BindControl(pDX, IDC_MATERIALS_NAME, m_editName);
    BindControl(pDX, IDC_MATERIALS_DENSITY, m_editDensity);
    BindControl(pDX, IDC_MATERIALS_DENSITY_UNIT, m_comboDensityUnit);
    BindControl(pDX, IDC_MATERIALS_MINIMUM, m_editMinimum);
    BindControl(pDX, IDC_MATERIALS_WALL_UNIT, m_comboWallUnit);
    BindControl(pDX, IDC_MATERIALS_MAXIMUM, m_editMaximum);
}

BEGIN_MESSAGE_MAP(CEditMaterialDBDlg, CMFXRuleDlgBase)
    ON_WM_NCLBUTTONDOWN()
    ON_BN_CLICKED(IDC_MATERIALS_DELETE, &CEditMaterialDBDlg::OnDelete)
    ON_BN_CLICKED(IDC_MATERIALS_EXPORT, &CEditMaterialDBDlg::OnExport)
    ON_BN_CLICKED(IDC_MATERIALS_IMPORT, &CEditMaterialDBDlg::OnImport)
    ON_BN_CLICKED(IDC_MATERIALS_NEW_GROUP, &CEditMaterialDBDlg::OnNewGroup)
    ON_BN_CLICKED(IDC_MATERIALS_NEW_MATERIAL, &CEditMaterialDBDlg::OnNewMaterial)
    ON_CBN_SELCHANGE(IDC_MATERIALS_DENSITY_UNIT, &CEditMaterialDBDlg::OnUnitChange)
    ON_CBN_SELCHANGE(IDC_MATERIALS_WALL_UNIT, &CEditMaterialDBDlg::OnUnitChange)
    ON_NOTIFY(TVN_SELCHANGINGW, IDC_MATERIALS_TREE, &CEditMaterialDBDlg::OnSelectionChanging)
    ON_NOTIFY(TVN_SELCHANGEDW, IDC_MATERIALS_TREE, &CEditMaterialDBDlg::OnSelectionChanged)
END_MESSAGE_MAP()

BOOL CEditMaterialDBDlg::OnInitDialog() {
    CMFXRuleDlgBase::OnInitDialog();
    EnableControls();
    if (!HasControls()) return RefuseToEdit();
    SetUpUnits();
    const IDatabaseCollector* const pDatabase = mfx_db::MFXDataHelper::getInstance();
    if (const MfxDatabaseResult result = m_edits.Load(*pDatabase); result.problem)
        return RefuseToEdit(GetProblemText(result.problem));
    const MfxDatabaseResult writing = pDatabase->GetWriteProblem();
    m_bWritable = true;
    if (writing.problem) MakeReadOnly(writing);
    m_editName.SetLimitText(kLongestName);
    ShowTree();
    m_tree.SetFocus();
    return FALSE;  // the focus is set
}

// Another item is not shown before the texts of this one are right.
void CEditMaterialDBDlg::OnSelectionChanging(NMHDR*, LRESULT* pResult) {
    *pResult = !TakeTexts();
}

void CEditMaterialDBDlg::OnSelectionChanged(NMHDR* pNotify, LRESULT*) {
    const TVITEMW& item = reinterpret_cast<const NMTREEVIEWW*>(pNotify)->itemNew;
    if (item.hItem) ShowItem(static_cast<int>(item.lParam));  // none is left when the tree is emptied
}

void CEditMaterialDBDlg::OnUnitChange() {
    if (TakeTexts()) {
        TakeUnits();
        ShowItem(m_nShown);
    } else {
        SetUpUnits();  // the texts are in the units from before
    }
}

void CEditMaterialDBDlg::OnNewGroup() {
    if (TakeTexts())
        ShowNewItem(m_edits.AddGroup(FindAbove(MaterialEdits::Kind::Process),
                                     LoadLocalizedString(IDS_MATERIALS_NEW_GROUP)));
}

void CEditMaterialDBDlg::OnNewMaterial() {
    if (TakeTexts())
        ShowNewItem(m_edits.AddMaterial(FindAbove(MaterialEdits::Kind::Group),
                                        LoadLocalizedString(IDS_MATERIALS_NEW_MATERIAL)));
}

void CEditMaterialDBDlg::OnDelete() {
    const int nItem = m_nShown;
    const bool bGroup = IsKind(nItem, MaterialEdits::Kind::Group);
    if (!AskUser(FormattedText(bGroup ? IDS_MATERIALS_DELETE_GROUP : IDS_MATERIALS_DELETE_MATERIAL,
                               m_edits.GetTexts(nItem).strName)))
        return;
    m_nShown = -1;  // the tree selects another item when this one goes
    m_edits.Delete(nItem);
    m_tree.DeleteItem(m_treeItems[static_cast<std::size_t>(nItem)]);
    m_tree.SetFocus();
}

void CEditMaterialDBDlg::OnImport() {
    IMaterialDatabase* const pDatabase = FindMaterialDatabase();
    if (!pDatabase || !TakeTexts() || !AskUser(LoadLocalizedString(IDS_MATERIALS_IMPORT_AT_ONCE))) return;
    const CString strPath = AskForMaterialFile(true, this);
    if (strPath.IsEmpty() || !Save()) return;
    CString strText;
    {
        const CWaitCursor wait;
        strText = ImportMaterials(*pDatabase, strPath);
        UpdateListCtrl();
    }
    ShowMessage(strText, MB_ICONINFORMATION);
}

void CEditMaterialDBDlg::OnExport() {
    IMaterialDatabase* const pDatabase = FindMaterialDatabase();
    if (!pDatabase || !TakeTexts()) return;
    if (!m_edits.GetChanges().empty() && !AskUser(LoadLocalizedString(IDS_MATERIALS_SAVE_FIRST))) return;
    const CString strPath = AskForMaterialFile(false, this);
    if (strPath.IsEmpty() || !Save()) return;
    const CString strFailure = ExportMaterials(*pDatabase, strPath);
    if (!strFailure.IsEmpty()) ShowMessage(strFailure, MB_ICONEXCLAMATION);
}

void CEditMaterialDBDlg::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CMFXRuleDlgBase::OnNcLButtonDown(nHitTest, point);
}

void CEditMaterialDBDlg::OnOK() {
    if (m_bWritable && TakeTexts() && Save()) CMFXRuleDlgBase::OnOK();
}

bool CEditMaterialDBDlg::HasControls() const {
    return HaveWindows({&m_tree, &m_editName, &m_editDensity, &m_editMinimum, &m_editMaximum,
                        &m_comboWallUnit, &m_comboDensityUnit});
}

void CEditMaterialDBDlg::SetUpUnits() {
    FillLengthUnits(m_comboWallUnit);
    SelectLengthUnit(m_comboWallUnit, m_edits.GetWallUnit());
    m_comboDensityUnit.ResetContent();
    for (const UnitName& unit : kDensityUnits) m_comboDensityUnit.AddString(LabelOf(unit));
    m_comboDensityUnit.SetCurSel(m_edits.GetDensityUnit() - DensityKilogramPerCubicMetre);
}

void CEditMaterialDBDlg::TakeUnits() {
    int nWallUnit = m_edits.GetWallUnit();
    StoreLengthUnit(m_comboWallUnit, nWallUnit);
    m_edits.SetWallUnit(static_cast<MfxLengthUnit_e>(nWallUnit));
    m_edits.SetDensityUnit(
        static_cast<MfxDensityUnit_e>(m_comboDensityUnit.GetCurSel() + DensityKilogramPerCubicMetre));
}

void CEditMaterialDBDlg::UpdateListCtrl() {
    const MfxDatabaseResult result = m_edits.Load(*mfx_db::MFXDataHelper::getInstance());
    if (result.problem) MakeReadOnly(result);
    ShowTree();
}

// The reason stands where the hint is otherwise.
void CEditMaterialDBDlg::MakeReadOnly(const MfxDatabaseResult& reason) {
    m_bWritable = false;
    if (CWnd* const pReason = GetDlgItem(IDC_MATERIALS_REASON))
        pReason->SetWindowText(LoadLocalizedString(GetProblemText(reason.problem)));
}

// With the groups of the first process in sight.
void CEditMaterialDBDlg::ShowTree() {
    m_nShown = -1;
    m_tree.SetRedraw(FALSE);
    m_tree.DeleteAllItems();
    m_treeItems.clear();
    for (int nItem = 0; nItem < static_cast<int>(m_edits.GetItems().size()); ++nItem) InsertItem(nItem);
    m_tree.Expand(m_tree.GetRootItem(), TVE_EXPAND);
    m_tree.SelectItem(m_tree.GetRootItem());
    m_tree.SetRedraw();
    m_tree.Invalidate();
    EnableControls();
}

void CEditMaterialDBDlg::InsertItem(int nItem) {
    const MaterialEdits::Item& item = m_edits.GetItems()[static_cast<std::size_t>(nItem)];
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = item.nParent < 0 ? TVI_ROOT : m_treeItems[static_cast<std::size_t>(item.nParent)];
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT | TVIF_PARAM;
    insertion.item.pszText = const_cast<LPWSTR>(item.material.strName.GetString());
    insertion.item.lParam = nItem;
    m_treeItems.push_back(m_tree.InsertItem(&insertion));
}

void CEditMaterialDBDlg::ShowItem(int nItem) {
    m_nShown = nItem;
    const MaterialTexts texts = nItem < 0 ? MaterialTexts() : m_edits.GetTexts(nItem);
    m_editName.SetWindowText(texts.strName);
    m_editDensity.SetWindowText(texts.strDensity);
    m_editMinimum.SetWindowText(texts.strMinimumWall);
    m_editMaximum.SetWindowText(texts.strMaximumWall);
    CString strUnit;
    m_comboWallUnit.GetWindowText(strUnit);
    if (CWnd* const pUnit = GetDlgItem(IDC_MATERIALS_MAXIMUM_UNIT)) pUnit->SetWindowText(strUnit);
    EnableControls();
}

void CEditMaterialDBDlg::EnableControls() {
    Needs met = m_nShown < 0 ? Needs::Nothing : Needs::AnyItem;
    if (IsKind(m_nShown, MaterialEdits::Kind::Group)) met = Needs::GroupOrMaterial;
    if (IsKind(m_nShown, MaterialEdits::Kind::Material)) met = Needs::Material;
    for (const auto& [nControlId, needs] : kEditingControls)
        if (CWnd* const pControl = GetDlgItem(nControlId))
            pControl->EnableWindow(m_bWritable && needs <= met);
}

// False, after a message, when one of the texts is wrong.
bool CEditMaterialDBDlg::TakeTexts() {
    if (m_nShown < 0 || !m_bWritable) return true;
    MaterialTexts texts;
    m_editName.GetWindowText(texts.strName);
    m_editDensity.GetWindowText(texts.strDensity);
    m_editMinimum.GetWindowText(texts.strMinimumWall);
    m_editMaximum.GetWindowText(texts.strMaximumWall);
    if (const MaterialFlaw flaw = m_edits.Change(m_nShown, texts); flaw != MaterialFlaw::None) {
        ShowFlaw(flaw);
        return false;
    }
    const CString strName = m_edits.GetTexts(m_nShown).strName;
    m_tree.SetItemText(m_treeItems[static_cast<std::size_t>(m_nShown)], strName);
    return true;
}

// Then the cursor stands in the box at fault.
void CEditMaterialDBDlg::ShowFlaw(MaterialFlaw flaw) {
    ShowMessage(LoadLocalizedString(TextOf(flaw)), MB_ICONINFORMATION);
    CEdit* pEdit = &m_editName;
    if (flaw == MaterialFlaw::Density) pEdit = &m_editDensity;
    if (flaw == MaterialFlaw::MinimumWall) pEdit = &m_editMinimum;
    if (flaw == MaterialFlaw::MaximumWall || flaw == MaterialFlaw::MaximumBelowMinimum)
        pEdit = &m_editMaximum;
    pEdit->SetFocus();
    pEdit->SetSel(0, -1);
}

// Ready to be named.
void CEditMaterialDBDlg::ShowNewItem(int nItem) {
    InsertItem(nItem);
    m_tree.SelectItem(m_treeItems[static_cast<std::size_t>(nItem)]);
    m_editName.SetFocus();
    m_editName.SetSel(0, -1);
}

// False, after a message, when nothing was saved.
bool CEditMaterialDBDlg::Save() {
    const MfxDatabaseResult result = m_edits.Save(*mfx_db::MFXDataHelper::getInstance());
    if (result.problem) ShowMessage(GetProblemText(result), MB_ICONEXCLAMATION);
    return !result.problem;
}

bool CEditMaterialDBDlg::IsKind(int nItem, MaterialEdits::Kind kind) const {
    return nItem >= 0 && m_edits.GetItems()[static_cast<std::size_t>(nItem)].kind == kind;
}

// The item that is shown, or the one above it of that kind.
int CEditMaterialDBDlg::FindAbove(MaterialEdits::Kind kind) const {
    int nItem = m_nShown;
    while (nItem >= 0 && !IsKind(nItem, kind))
        nItem = m_edits.GetItems()[static_cast<std::size_t>(nItem)].nParent;
    return nItem;
}

void EditMaterialsFrom(CMFXRuleDlgBase& dialog) {
    CEditMaterialDBDlg(&dialog).DoModal();
    dialog.UpdateListCtrl();
}
