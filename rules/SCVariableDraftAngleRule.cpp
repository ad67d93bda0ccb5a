#include "SCVariableDraftAngleRule.h"

#include "DraftTableCheck.h"
#include "MFXUnitConvertor.h"
#include "NoThrow.h"
#include "NumberText.h"
#include "ResourceSwitch.h"
#include "RuleDialogs.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "RuleRecord.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

namespace {

// Size bands of 0 to 1, 1 to 2, 2 to 4 and 4 to 8 inches in millimetres, the upper ones rounded on purpose.
constexpr const wchar_t* kDefaultTable[][DraftCell::Count] = {
    {L"0.0", L"25.4", L"3", L"3", L"1.5"},
    {L"25.4", L"50.8", L"1.5", L"2.5", L"1"},
    {L"50.8", L"101", L"1", L"1.5", L"1"},
    {L"101", L"203", L".75", L"1", L"1"},
};

void ConvertLength(CString& strCell, int nFromUnit, int nToUnit) {
    double value = ParseDouble(strCell);
    if (!IsNoUpperLimit(value))
        value = CMFXUnitConvertor().ConversionFromOneUnitToAnother(value, QuantityLength, nFromUnit, nToUnit);
    strCell = FormatDouble(value);
}

void ConvertAngle(CString& strCell, int nFromUnit, int nToUnit) {
    strCell = FormatDouble(CMFXUnitConvertor().ConversionFromOneUnitToAnother(
        ParseDouble(strCell), QuantityAngle, nFromUnit, nToUnit));
}

void ConvertRow(MfxTableRow& row, const UnitPair& from, const UnitPair& to) {
    constexpr std::size_t kFewestCells = DraftCell::SecondAngle + 1;
    if (row.cells.size() < kFewestCells) return;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (i <= DraftCell::UpperBound) {
            if (from.m_nLengthUnit != to.m_nLengthUnit)
                ConvertLength(row.cells[i], from.m_nLengthUnit, to.m_nLengthUnit);
        } else if (i <= DraftCell::ThirdAngle) {
            if (from.m_nAngleUnit != to.m_nAngleUnit)
                ConvertAngle(row.cells[i], from.m_nAngleUnit, to.m_nAngleUnit);
        }
    }
}

}  // namespace

CMFXSCVariableDraftAngleRule::CMFXSCVariableDraftAngleRule() {
    if (g_pSandCastingRulesApp) {
        SetRuleHeader(*this, IDS_DRAFT_RULE_NAME, LoadLocalizedString(IDS_PROCESS), kModuleName,
                      CategorySandCasting, kRuleId);
        m_strSummary = LoadLocalizedString(IDS_DRAFT_RULE_SUMMARY);
    }
    CreateParameters();
}

void CMFXSCVariableDraftAngleRule::InitializeParameters() {
    NoThrow([this] { CreateParameters(); });
}

void CMFXSCVariableDraftAngleRule::CreateParameters() {
    const ResourceSwitch resources;  // the parameter's label
    if (!FindTable())
        CreateParamStorageObject(TypeTableRow, kDraftAngleTableId, OperatorEqual, ParamTable, true, false);
    MfxArray<MfxTableRow>* pRows = FindTable();
    if (pRows && pRows->IsEmpty())
        for (const auto& cells : kDefaultTable) pRows->Add(MfxTableRow{{std::begin(cells), std::end(cells)}});
    m_bParametersCreated = true;
}

int CMFXSCVariableDraftAngleRule::Execute(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

// The stored rows replace the table; a record without rows leaves it empty, the defaults do not come back.
void CMFXSCVariableDraftAngleRule::PopulateFromXML(MfxXMLNode* pNode) {
    NoThrow([&] {
        if (MfxArray<MfxTableRow>* pRows = FindTable()) pRows->RemoveAll();
        ReadRuleRecord(this, pNode);
        ReloadSummary();
    });
}

MfxXMLNode* CMFXSCVariableDraftAngleRule::BuildXMLNode() {
    MfxXMLNode* pNode = nullptr;
    NoThrow([&] {
        pNode = WriteRuleRecord(this);
        ReloadSummary();
    });
    return pNode;
}

void CMFXSCVariableDraftAngleRule::PrepareRule() {}

void CMFXSCVariableDraftAngleRule::ConvertUnits(const UnitPair& from, const UnitPair& to) {
    NoThrow([&] {
        if (from == to) return;
        MfxArray<MfxTableRow>* pRows = FindTable();
        if (!pRows) return;
        MfxArray<MfxTableRow> converted = *pRows;  // all rows or none
        for (MfxTableRow& row : converted) ConvertRow(row, from, to);
        *pRows = std::move(converted);
        m_nLengthUnit = to.m_nLengthUnit;
        m_nAngleUnit = to.m_nAngleUnit;
    });
}

bool CMFXSCVariableDraftAngleRule::AcceptRuleData(const CMfxData*) {
    return true;
}

void CMFXSCVariableDraftAngleRule::ConfigureRuleDialog() {
    NoThrow([this] {
        const ResourceSwitch resources;
        RunDraftAngleDialog(*this);
        ReloadSummary();
    });
}

int CMFXSCVariableDraftAngleRule::ExecuteAlternate(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

MfxArray<MfxTableRow>* CMFXSCVariableDraftAngleRule::FindTable() {
    CMfxParamStorage* pTable = FindParameterInArray(kDraftAngleTableId);
    return pTable ? &pTable->GetValues<MfxTableRow>() : nullptr;
}

void CMFXSCVariableDraftAngleRule::ReloadSummary() {
    if (FindTable()) m_strSummary = LoadLocalizedString(IDS_DRAFT_RULE_SUMMARY);
}
