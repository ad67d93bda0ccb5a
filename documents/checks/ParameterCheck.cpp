#include "ParameterCheck.h"

#include "CriteriaCheck.h"
#include "DraftRowCheck.h"
#include "ElementCheck.h"
#include "MassUnits.h"
#include "ParameterXml.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "Text.h"
#include "Units.h"
#include "ValueContent.h"
#include "XmlNumber.h"

#include <set>

namespace {

int CountValues(const CMfxParamStorage& storage) {
    return std::visit([](const auto& values) { return values.GetCount(); }, storage.m_values);
}

void CheckNumberElements(const Reporter& reporter, const MfxXMLNode& parameter, const CString& tag) {
    parameter.ForEachChild(tag, [&](const MfxXMLNode& number) {
        const CString text = number.GetNodeValue();
        if (!IsInteger(text))
            reporter.Add<FindingCode::NotAWholeNumber>(number, ToUtf8(tag) + ": " + Quoted(text));
    });
}

// With an unsuitable operator or type the rule would not write the parameter, or its values, again.
void CheckOperatorAndType(const Reporter& reporter, const MfxXMLNode& parameter,
                          const CMfxParamStorage& storage) {
    if (!storage.IsSaved()) reporter.Add<FindingCode::UnsavedOperator>(parameter);
    if ((storage.GetType() == TypeTableRow) != (storage.m_paramType == ParamTable))
        reporter.Add<FindingCode::UnsuitableParameterType>(parameter);
    for (const CString* tag : {&kOperatorTag, &kOperatorOptionTag, &kParameterTypeTag})
        CheckNumberElements(reporter, parameter, *tag);
    const int count = CountValues(storage);
    if (storage.m_operator == OperatorRanges && count % 2 != 0 && count % 3 != 0)
        reporter.Add<FindingCode::UnpairedRangeValues>(parameter);
}

void CheckSwitch(const Reporter& reporter, const MfxXMLNode& value) {
    double number = 0.0;
    if (value.GetNodeValueInDouble(number) && number != 0.0 && number != 1.0)
        reporter.Add<FindingCode::LimitSwitchNotBoolean>(value, FormatNumber(number));
}

// A limit has one value. In older records a switch may stand before it, but not in a constraint.
void CheckLimitValues(const Reporter& reporter, const MfxXMLNode& parameter, int count) {
    if (count == 0) reporter.Add<FindingCode::MissingLimitValue>(parameter);
    if (count > 1 && reporter.IsInConstraint())
        reporter.Add<FindingCode::TooManyMaterialLimitValues>(parameter, count);
    else if (count > 2)
        reporter.Add<FindingCode::TooManyLimitValues>(parameter, count);
    else if (count == 2)
        CheckSwitch(reporter, *parameter.FindChild(kValueTag));
}

void CheckNumbers(const Reporter& reporter, const MfxXMLNode& parameter) {
    const int count = CheckReals(reporter, parameter);
    const long paramId = reporter.GetParamId();
    if (paramId == kThicknessMinId || paramId == kThicknessMaxId)
        CheckLimitValues(reporter, parameter, count);
    if (paramId != kVariationId) return;
    if (count == 0) reporter.Add<FindingCode::MissingVariation>(parameter);
    if (count > 1) reporter.Add<FindingCode::TooManyVariations>(parameter, count);
}

// Rules convert a parameter's values, but not its criteria.
void CheckUnconverted(const Reporter& reporter, const MfxXMLNode& criteria, const CMfxParamStorage& storage) {
    const bool isLength = QuantityOfParameter(storage.m_nParamId) == Quantity::Length;
    const bool isAbsolute = !storage.m_absoluteDeviation.empty() || !storage.m_absoluteValue.empty();
    if (isLength && isAbsolute) reporter.Add<FindingCode::UnconvertedDeviations>(criteria);
}

void CheckKnownParameter(const Reporter& reporter, const MfxXMLNode& parameter,
                         const CMfxParamStorage& storage) {
    CString status;
    if (!parameter.GetAttributeValue(kStatusAttribute, status))
        reporter.Add<FindingCode::MissingParameterStatus>(parameter);
    CheckStatus(reporter, parameter);
    CheckOperatorAndType(reporter, parameter, storage);
    const bool isTable = storage.m_paramType == ParamTable;
    if (storage.GetType() == TypeTableRow && isTable)
        CheckDraftRows(reporter, parameter, storage.GetValues<MfxTableRow>());
    if (storage.GetType() == TypeDouble && !isTable) CheckNumbers(reporter, parameter);
    if (const auto criteria = parameter.FindChild(kCriteriaTag)) {
        CheckCriteria(reporter, *criteria);
        CheckUnconverted(reporter, *criteria, storage);
    }
}

void CheckParameter(const Reporter& reporter, const MfxXMLNode& parameter, const CMfxParamStorage* storage,
                    bool isFirst) {
    if (storage && isFirst)
        CheckKnownParameter(reporter, parameter, *storage);
    else if (storage)
        reporter.Add<FindingCode::RepeatedParameter>(parameter);
    else if (!IsLegacyMaterialTable(reporter.GetParamId()))
        reporter.Add<FindingCode::UnknownParameter>(parameter);
    else if (!isFirst)
        reporter.Add<FindingCode::RepeatedLegacyTable>(parameter);
}

}  // namespace

void CheckParameters(const Reporter& reporter, const MfxXMLNode& parent, const MfxParamArray& params) {
    std::set<long> seen;
    parent.ForEachChild(kParameterTag, [&](const MfxXMLNode& parameter) {
        const long paramId = ParameterIdOf(parameter);
        CheckParameter(reporter.OfParameter(paramId), parameter, FindParameter(params, paramId),
                       seen.insert(paramId).second);
    });
    for (const MfxParamRecord& record : params)
        if (const long paramId = record.m_pStorage->m_nParamId; !seen.contains(paramId))
            reporter.OfParameter(paramId).Add<FindingCode::MissingParameter>(parent);
}

void CheckMassUnit(const Reporter& reporter) {
    const CMfxParamStorage* storage = FindParameter(reporter.GetRule().m_paramArray, kMassUnitId);
    if (!storage || storage->GetValues<CString>().IsEmpty()) return;
    const CString& label = storage->GetValues<CString>()[0];
    if (FindMassUnit(label) == 0)
        reporter.OfParameter(kMassUnitId)
            .Add<FindingCode::UnknownMassUnit>(*reporter.GetEntry().record, Quoted(label), MassUnitLabels());
}
