#include "CriteriaCheck.h"

#include "ElementCheck.h"
#include "RecordNames.h"
#include "Text.h"

namespace {

void CheckDeviation(const Reporter& reporter, const MfxXMLNode& deviation) {
    constexpr int kMostValues = 2;
    const CString severity = deviation.GetNodeName();
    if (severity != kWarningTag && severity != kInfoTag && severity != kUnknownTag)
        reporter.Add<FindingCode::UnknownSeverity>(deviation, Shortened(severity));
    if (CheckReals(reporter, deviation) > kMostValues)
        reporter.Add<FindingCode::TooManyDeviationValues>(deviation, Shortened(severity));
}

}  // namespace

void CheckCriteria(const Reporter& reporter, const MfxXMLNode& criteria) {
    CheckStatus(reporter, criteria);
    CString type;
    if (criteria.GetAttributeValue(kCriteriaTypeAttribute, type))
        CheckWholeNumber(reporter, criteria, kCriteriaTypeAttribute, type);
    criteria.ForEachChild(CString(), [&](const MfxXMLNode& map) {
        CheckStrayText(reporter, map);
        map.ForEachChild(CString(),
                         [&](const MfxXMLNode& deviation) { CheckDeviation(reporter, deviation); });
    });
}
