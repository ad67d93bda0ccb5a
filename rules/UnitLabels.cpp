#include "UnitLabels.h"

#include "MFXUnitConvertor.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

#include <cstddef>
#include <iterator>

namespace {

constexpr UINT kNoLabel = 0;

// By unit code.
constexpr UINT kLengthLabels[] = {
    IDS_SUMMARY_MODEL_UNIT, IDS_SUMMARY_MILLIMETRE, IDS_SUMMARY_CENTIMETRE,
    IDS_SUMMARY_INCH,       IDS_SUMMARY_METRE,      kNoLabel,
    IDS_SUMMARY_MICROMETRE, IDS_SUMMARY_THOU,       IDS_SUMMARY_DECIMETRE,
    IDS_SUMMARY_YARD,       IDS_SUMMARY_KILOMETRE,
};
static_assert(std::size(kLengthLabels) == LengthKilometre + 1 && kLengthLabels[LengthFoot] == kNoLabel);

constexpr UINT kAngleLabels[] = {
    IDS_SUMMARY_DEGREE,
    IDS_SUMMARY_RADIAN,
    IDS_SUMMARY_GRADIAN,
    IDS_SUMMARY_ARC_MINUTE,
};
static_assert(std::size(kAngleLabels) == AngleArcMinute + 1);

template <std::size_t Size>
CString LoadLabel(const UINT (&labels)[Size], int nCode) {
    const bool bHasLabel = nCode >= 0 && nCode < static_cast<int>(Size) && labels[nCode] != kNoLabel;
    return bHasLabel ? LoadLocalizedString(labels[nCode]) : CString();
}

}  // namespace

CString GetLengthUnitLabel(int nLengthUnit) {
    return LoadLabel(kLengthLabels, nLengthUnit);
}

CString GetAngleUnitLabel(int nAngleUnit) {
    return LoadLabel(kAngleLabels, nAngleUnit);
}
