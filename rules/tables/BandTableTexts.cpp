#include "BandTableTexts.h"

#include "ModuleText.h"
#include "NumberText.h"
#include "XmlNumber.h"
#include "resource.h"

namespace {

CString RowText(UINT nStringId, int nRow) {
    CString strText;
    strText.Format(LoadModuleText(nStringId), nRow);
    return strText;
}

CString IncompleteText(UINT nWord, int nRow) {
    return FormattedText(IDS_SIZE_WEIGHT_INCOMPLETE, LoadModuleText(nWord), FormatInteger(nRow));
}

CString JointText(UINT nStringId, const SizeAndWeightResult& result, const CString& strUnit) {
    const CString strExpected = (FormatDouble(result.expected) + L" " + strUnit).TrimRight();
    CString strText;
    strText.Format(LoadModuleText(nStringId), strExpected.GetString(), result.nRow);
    return strText;
}

}  // namespace

CString BandFlawText(const SizeAndWeightResult& result, const CString& strLengthUnit,
                     const CString& strMassUnit) {
    using Flaw = SizeAndWeightFlaw;
    switch (result.flaw) {
        case Flaw::SizeInverted:
            return RowText(IDS_SIZE_WEIGHT_SIZE_INVERTED, result.nRow);
        case Flaw::MissingOrZero:
            return RowText(IDS_SIZE_WEIGHT_MISSING_OR_ZERO, result.nRow);
        case Flaw::SizeNotContiguous:
            return JointText(IDS_SIZE_WEIGHT_SIZE_NOT_CONTIGUOUS, result, strLengthUnit);
        case Flaw::NoBands:
            return LoadModuleText(IDS_SIZE_WEIGHT_NO_BANDS);
        case Flaw::WeightInverted:
            return RowText(IDS_SIZE_WEIGHT_WEIGHT_INVERTED, result.nRow);
        case Flaw::WeightNotContiguous:
            return JointText(IDS_SIZE_WEIGHT_WEIGHT_NOT_CONTIGUOUS, result, strMassUnit);
        case Flaw::SizeIncomplete:
            return IncompleteText(IDS_SIZE_WEIGHT_CAST_SIZE, result.nRow);
        case Flaw::WeightIncomplete:
            return IncompleteText(IDS_SIZE_WEIGHT_CAST_WEIGHT, result.nRow);
        case Flaw::SizeAndWeightIncomplete:
            return IncompleteText(IDS_SIZE_WEIGHT_CAST_SIZE_AND_WEIGHT, result.nRow);
        case Flaw::ThicknessMissing:
            return IncompleteText(IDS_SIZE_WEIGHT_WALL_THICKNESS, result.nRow);
        case Flaw::IncompleteWhileTyping:
        case Flaw::None:
            break;
    }
    return CString();
}
