#include "LegacyTableCheck.h"

#include "ElementCheck.h"
#include "ParameterXml.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "Text.h"

#include <algorithm>

namespace {

// Attributes that are read, or that are the same in every record.
bool IsKnownAttribute(const CString& name) {
    const CString* const known[] = {&kNameAttribute, &kTypeAttribute, &kStatusAttribute,
                                    &kCriteriaTypeAttribute};
    if (std::ranges::any_of(known, [&](const CString* other) { return name == *other; })) return true;
    for (std::size_t cell = 0; cell < LegacyTableCell::Count; ++cell)
        if (name == CellAttribute(cell)) return true;
    return false;
}

bool IsKnownElement(const CString& tag) {
    const CString* const known[] = {
        &kOperatorTag,         &kOperatorOptionTag,    &kParameterTypeTag, &kValueTag,  &kCriteriaTag,
        &kPercentDeviationTag, &kAbsoluteDeviationTag, &kAbsoluteValueTag, &kRemarksTag};
    return std::ranges::any_of(known, [&](const CString* other) { return tag == *other; });
}

void CheckForLosses(const Reporter& reporter, const MfxXMLNode& element) {
    const auto addLoss = [&](const MfxXMLNode& at, const CString& name) {
        reporter.Add<FindingCode::ContentLost>(at, Shortened(name));
    };
    for (const CString& name : element.GetAttributeNames())
        if (!IsKnownAttribute(name)) addLoss(element, name);
    if (element.GetNodeName() == kRemarksTag && !element.GetNodeValue().IsEmpty())
        addLoss(element, kRemarksTag);
    element.ForEachChild(CString(), [&](const MfxXMLNode& child) {
        if (IsKnownElement(child.GetNodeName()))
            CheckForLosses(reporter, child);
        else
            addLoss(child, child.GetNodeName());
    });
}

void CheckMaterialRow(const Reporter& reporter, const MfxXMLNode& row) {
    CheckStrayText(reporter, row);
    for (const std::size_t cell : {LegacyTableCell::Minimum, LegacyTableCell::Maximum}) {
        const CString name = CellAttribute(cell);
        CheckCellNumber(reporter, row, name, row.GetAttribute(name));
    }
}

void CheckOlderParameter(const Reporter& reporter, const MfxXMLNode& parameter) {
    if (parameter.HasComments()) reporter.Add<FindingCode::CommentLost>(parameter);
    CheckForLosses(reporter, parameter);
    if (reporter.GetParamId() == kLegacyMaterialSwitchId)
        CheckReals(reporter, parameter);
    else
        parameter.ForEachChild(kValueTag, [&](const MfxXMLNode& row) { CheckMaterialRow(reporter, row); });
}

}  // namespace

void CheckLegacyTable(const Reporter& reporter) {
    if (!FindParameter(reporter.GetRule().m_paramArray, kThicknessMinId)) return;
    reporter.GetEntry().record->ForEachChild(kParameterTag, [&](const MfxXMLNode& parameter) {
        const long paramId = ParameterIdOf(parameter);
        if (IsLegacyMaterialTable(paramId)) CheckOlderParameter(reporter.OfParameter(paramId), parameter);
    });
}
