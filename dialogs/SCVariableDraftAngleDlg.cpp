#include "SCVariableDraftAngleDlg.h"

#include "DialogControls.h"
#include "DialogTexts.h"
#include "DraftSheetTexts.h"
#include "DraftTableTexts.h"
#include "FileDialogs.h"
#include "LengthUnitCombo.h"
#include "NumberText.h"
#include "RuleDialogs.h"
#include "SCVariableDraftAngleRule.h"
#include "UnitLabels.h"
#include "WorkbookImport.h"
#include "resource.h"

#include <algorithm>

namespace {

using Grid = CMFXVariableDraftRuleListCtrl;

constexpr int kImportKey = 1;  // id of the hot key

// The stored upper bound of a last band without limit is not shown.
CString TextOfCell(const MfxTableRow& row, std::size_t cell) {
    const CString& strText = row.cells[cell];
    const bool bOpen = cell == DraftCell::UpperBound && strText == FormatDouble(NoUpperLimitValue);
    return bOpen ? CString() : strText;
}

// Rows that lack a value are not shown; a third angle may be missing.
bool IsShown(const MfxTableRow& row) {
    return row.cells.size() >= DraftCell::Count &&
           std::none_of(row.cells.begin(), row.cells.begin() + DraftCell::ThirdAngle,
                        [](const CString& strCell) { return strCell.IsEmpty(); });
}

}  // namespace

CMFXSCVariableDraftAngleDlg::CMFXSCVariableDraftAngleDlg(CWnd* pParent, CMFXSCVariableDraftAngleRule* pRule)
    : CMFXRuleDlgBase(IDD_DRAFT, kDraftAngleRuleId, GetHelpFilePath(), pParent), m_pRule(pRule) {}

void CMFXSCVariableDraftAngleDlg::DoDataExchange(CDataExchange* pDX) {
    CMFXRuleDlgBase::DoDataExchange(pDX);
    BindControl(pDX, IDC_DRAFT_LEGEND, m_gridLegend);
    BindControl(pDX, IDC_DRAFT_BANDS, m_gridBands);
    BindControl(pDX, IDC_DRAFT_LENGTH_UNIT, m_comboLengthUnit);
    BindControl(pDX, IDC_DRAFT_PICTURE, m_picture);
}

BEGIN_MESSAGE_MAP(CMFXSCVariableDraftAngleDlg, CMFXRuleDlgBase)
    ON_WM_ACTIVATE()
    ON_WM_DESTROY()
    ON_WM_HOTKEY()
    ON_WM_NCLBUTTONDOWN()
    ON_BN_CLICKED(IDC_DRAFT_IMPORT, &CMFXSCVariableDraftAngleDlg::OnImport)
    ON_CBN_SELCHANGE(IDC_DRAFT_LENGTH_UNIT, &CMFXSCVariableDraftAngleDlg::OnLengthUnitChange)
END_MESSAGE_MAP()

BOOL CMFXSCVariableDraftAngleDlg::OnInitDialog() {
    RegisterHotKey(m_hWnd, kImportKey, MOD_CONTROL, 'I');  // the button is there when another program has it
    CMFXRuleDlgBase::OnInitDialog();
    if (!m_pRule) return RefuseToEdit();
    SetUpGrids();
    LoadBands();
    if (!m_comboLengthUnit.GetSafeHwnd()) return RefuseToEdit();
    FillLengthUnits(m_comboLengthUnit);
    SelectLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);
    ShowPicture(m_picture, IDB_DRAFT_PICTURE);
    if (CWnd* const pImport = GetDlgItem(IDC_DRAFT_IMPORT))
        AddToolTip(*pImport, LoadLocalizedString(IDS_DRAFT_IMPORT_TIP));
    return TRUE;
}

// The grid has the keys only while it has the focus: after an edit it would take those of the other controls.
BOOL CMFXSCVariableDraftAngleDlg::PreTranslateMessage(MSG* pMsg) {
    BOOL bHandled = FALSE;
    if (m_gridBands.HasFocus()) m_gridBands.HandleKeyDown(pMsg, &bHandled);
    return bHandled || CMFXRuleDlgBase::PreTranslateMessage(pMsg);
}

// Other programs have their Ctrl+I while the dialog is not in front.
void CMFXSCVariableDraftAngleDlg::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized) {
    CMFXRuleDlgBase::OnActivate(nState, pWndOther, bMinimized);
    if (nState == WA_INACTIVE)
        UnregisterHotKey(m_hWnd, kImportKey);
    else
        RegisterHotKey(m_hWnd, kImportKey, MOD_CONTROL, 'I');
}

void CMFXSCVariableDraftAngleDlg::OnDestroy() {
    UnregisterHotKey(m_hWnd, kImportKey);
    CMFXRuleDlgBase::OnDestroy();
}

// Not under a message box of the dialog.
void CMFXSCVariableDraftAngleDlg::OnHotKey(UINT nHotKeyId, UINT, UINT) {
    if (nHotKeyId == kImportKey && IsWindowEnabled()) OnImport();
}

void CMFXSCVariableDraftAngleDlg::OnImport() {
    if (!m_pRule || !m_gridBands.GetSafeHwnd()) return;
    const CString strPath = AskForWorkbook(this);
    if (!strPath.IsEmpty()) ImportWorkbook(strPath);
}

// The heading tells the unit that is chosen.
void CMFXSCVariableDraftAngleDlg::OnLengthUnitChange() {
    CString strUnit;
    m_comboLengthUnit.GetWindowText(strUnit);
    CString strHeading = HeadingWithUnit(IDS_DRAFT_SIZES, strUnit);
    LVCOLUMN column{};
    column.mask = LVCF_TEXT;
    column.pszText = strHeading.GetBuffer(0);
    if (m_gridLegend.GetSafeHwnd()) m_gridLegend.SetColumn(Grid::kFirstBandCol, &column);
}

void CMFXSCVariableDraftAngleDlg::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CMFXRuleDlgBase::OnNcLButtonDown(nHitTest, point);
}

// Stores the unit even when the bands are refused afterwards; this is on purpose.
void CMFXSCVariableDraftAngleDlg::OnOK() {
    if (m_pRule && m_comboLengthUnit.GetSafeHwnd())
        StoreLengthUnit(m_comboLengthUnit, m_pRule->m_nLengthUnit);
    EndBandEdit();
    if (StoreBands()) CMFXRuleDlgBase::OnOK();
}

// The legend stands above the bands as headings of groups of columns; it has no rows.
void CMFXSCVariableDraftAngleDlg::SetUpGrids() {
    if (!m_gridLegend.GetSafeHwnd() || !m_gridBands.GetSafeHwnd()) return;
    constexpr int kHeaderTenthsOfPoint = 120, kSizesWidth = 120, kAnglesWidth = 375;
    m_headerFont.CreatePointFont(kHeaderTenthsOfPoint, LoadLocalizedString(IDS_DRAFT_HEADING_FONT));
    for (CMFXListCtrl* const pGrid : {&m_gridLegend, &m_gridBands}) {
        pGrid->SetExtendedStyle(CMFXListCtrl::kExtendedStyle);
        pGrid->SetFont(GetFont());
        pGrid->GetHeaderCtrl()->SetFont(&m_headerFont);
    }
    m_gridLegend.InitColumns({L"", HeadingWithUnit(IDS_DRAFT_SIZES, m_strLengthUnit),
                              HeadingWithUnit(IDS_DRAFT_ANGLES, m_strAngleUnit)},
                             kSizesWidth, kAnglesWidth);
    std::vector<CString> headings{L""};
    for (const UINT nHeading : {IDS_DRAFT_LOWER_BOUND, IDS_DRAFT_UPPER_BOUND, IDS_DRAFT_FIRST_ANGLE,
                                IDS_DRAFT_SECOND_ANGLE, IDS_DRAFT_THIRD_ANGLE})
        headings.push_back(LoadLocalizedString(nHeading));
    m_gridBands.InitBandColumns(headings);
    AddToolTip(*m_gridBands.GetHeaderCtrl(), LoadLocalizedString(IDS_DRAFT_BANDS_TIP));
}

void CMFXSCVariableDraftAngleDlg::LoadBands() {
    const CMfxParamStorage* pTable = m_pRule->FindParameterInArray(kDraftAngleTableId);
    std::vector<MfxTableRow> rows;
    if (pTable) rows.assign(pTable->GetValues<MfxTableRow>().begin(), pTable->GetValues<MfxTableRow>().end());
    for (MfxTableRow& row : rows)
        if (IsShown(row))
            row.cells.resize(DraftCell::Count);
        else
            row.cells.clear();
    ShowBands(rows);
}

// A table that is longer than the grid makes the grid longer.
void CMFXSCVariableDraftAngleDlg::ShowBands(const std::vector<MfxTableRow>& rows) {
    if (!m_gridBands.GetSafeHwnd()) return;
    m_gridBands.MakeEmptyRows(static_cast<int>(std::max(kMostDraftBands, rows.size())));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < rows[row].cells.size(); ++cell)
            m_gridBands.SetCellText(static_cast<int>(row), Grid::kFirstBandCol + static_cast<int>(cell),
                                    TextOfCell(rows[row], cell));
}

// A third angle that is still being edited is dropped; this is on purpose.
void CMFXSCVariableDraftAngleDlg::EndBandEdit() {
    const bool bEditing = m_gridBands.IsEditorVisible();
    CString strText;
    if (m_gridBands.EndCellEdit(strText) && bEditing && m_gridBands.GetEditCol() == Grid::kLastBandCol)
        m_gridBands.SetCellText(m_gridBands.GetEditRow(), Grid::kLastBandCol, L"");
}

bool CMFXSCVariableDraftAngleDlg::StoreBands() {
    if (!m_gridBands.GetSafeHwnd()) return false;
    std::vector<MfxTableRow> rows(static_cast<std::size_t>(m_gridBands.GetItemCount()));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (int nCol = Grid::kFirstBandCol; nCol <= Grid::kLastBandCol; ++nCol)
            rows[row].cells.push_back(m_gridBands.GetItemText(static_cast<int>(row), nCol));
    DraftTableResult result = CheckDraftTable(rows);
    if (result.flaw != DraftTableFlaw::None) {
        ShowFlaw(result);
        return false;
    }
    CMfxParamStorage* pTable = m_pRule ? m_pRule->FindParameterInArray(kDraftAngleTableId) : nullptr;
    if (!pTable) return false;
    CString& strLastBound = result.bands.back().cells[DraftCell::UpperBound];
    if (strLastBound.IsEmpty()) strLastBound = FormatDouble(NoUpperLimitValue);
    MfxArray<MfxTableRow>& stored = pTable->GetValues<MfxTableRow>();
    stored.RemoveAll();
    for (MfxTableRow& band : result.bands) stored.Add(std::move(band));
    return true;
}

// Then the cursor stands in the cell at fault.
void CMFXSCVariableDraftAngleDlg::ShowFlaw(const DraftTableResult& result) {
    ShowMessage(DraftFlawText(result), MB_ICONINFORMATION);
    m_gridBands.BeginCellEdit(std::max(0, result.nRow - 1),
                              Grid::kFirstBandCol + static_cast<int>(result.cell), CMFXListCtrl::kTextLimit);
}

// Fills the grid, or says why not and changes nothing.
void CMFXSCVariableDraftAngleDlg::ImportWorkbook(const CString& strPath) {
    WorkbookTable columns;
    CString strError;
    bool bRead = false;
    {
        const CWaitCursor wait;
        bRead = ReadWorkbookTable(strPath, kDraftSheetColumns, columns, strError);
    }
    if (!bRead) {
        if (strError.IsEmpty()) strError = LoadLocalizedString(IDS_DRAFT_WRONG_HEADINGS);
        return ShowMessage(strError, MB_ICONEXCLAMATION);
    }
    const DraftSheet sheet = ReadDraftSheet(columns);
    const bool bBands = sheet.fault == DraftSheetFault::None;
    if (bBands)
        ShowBands(sheet.table.bands);
    else
        ShowMessage(DraftSheetFaultText(sheet),
                    sheet.fault == DraftSheetFault::RefusedTable ? MB_ICONINFORMATION : MB_ICONEXCLAMATION);
}

void RunDraftAngleDialog(CMFXSCVariableDraftAngleRule& rule) {
    CMFXSCVariableDraftAngleDlg dialog(nullptr, &rule);
    dialog.m_strLengthUnit = GetLengthUnitCaption(rule.m_nLengthUnit);
    dialog.m_strAngleUnit = GetAngleUnitLabel(rule.m_nAngleUnit);
    dialog.DoModal();
}
