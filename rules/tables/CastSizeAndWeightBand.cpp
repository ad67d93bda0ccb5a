#include "CastSizeAndWeightBand.h"

#include "MFXConstraint.h"
#include "NumberText.h"
#include "RuleParameters.h"

#include <algorithm>

namespace {

double ElementOf(const CMFXConstraint& group, long nParamId, int nIndex) {
    const CMfxParamStorage* pStorage = group.FindParameterInArray(nParamId);
    if (!pStorage || nIndex >= pStorage->GetValues<double>().GetCount()) return kValueNotGiven;
    const double value = pStorage->GetValues<double>()[nIndex];
    return value < -kTolerance ? kValueNotGiven : value;
}

}  // namespace

bool IsBlank(const CastSizeAndWeightBand& band) {
    return std::ranges::none_of(kBandValues, [&](auto value) { return IsGiven(band.*value); });
}

bool IsUsable(const CastSizeAndWeightBand& band) {
    const bool bHasSizes = IsGiven(band.sizeMin) && IsGiven(band.sizeMax);
    const bool bHasWeights = IsGiven(band.weightMin) && IsGiven(band.weightMax);
    return (bHasSizes || bHasWeights) && IsGiven(band.thickness);
}

std::vector<CastSizeAndWeightBand> ReadBands(const CMFXConstraint& group) {
    std::vector<CastSizeAndWeightBand> bands;
    const CMfxParamStorage* pSizes = group.FindParameterInArray(kSizeMinId);
    for (int i = 0; pSizes && i < pSizes->GetValues<double>().GetCount(); ++i) {
        CastSizeAndWeightBand band;
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell)
            band.*kBandValues[cell] = ElementOf(group, kBandParameterIds[cell], i);
        if (!IsBlank(band)) bands.push_back(band);
    }
    return bands;
}
