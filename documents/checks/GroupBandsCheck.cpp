#include "BandFindings.h"
#include "RuleParameters.h"
#include "SizeAndWeightCheck.h"
#include "Units.h"
#include "ValueCheck.h"

namespace {

using Bands = std::vector<NumberedBand>;

// The sizes or the weights of bands.
struct BandRange {
    double CastSizeAndWeightBand::*lower;
    double CastSizeAndWeightBand::*upper;
    std::string band, noun, unit;
};

void AddInvertedBand(const Reporter& reporter, const Bands& bands, int row, const BandRange& range) {
    const CastSizeAndWeightBand& band = bands[static_cast<std::size_t>(row - 1)].band;
    AddInverted(reporter, row, range.band, band.*range.lower, band.*range.upper);
}

// The row continues the nearest one before it that has an upper bound.
void AddJoint(const Reporter& reporter, const Bands& bands, const SizeAndWeightResult& result,
              const BandRange& range) {
    auto before = static_cast<std::size_t>(result.nRow - 1);
    const double begin = bands[before].band.*range.lower;
    do --before;
    while (before > 0 && bands[before].band.*range.upper == kValueNotGiven);
    AddNotContiguous(reporter, {.row = result.nRow,
                                .rowBefore = bands[before].nRow,
                                .begin = begin,
                                .endBefore = result.expected,
                                .noun = range.noun,
                                .unit = range.unit});
}

void AddFlaw(const Reporter& reporter, const Bands& bands, const SizeAndWeightResult& result,
             const BandRange& sizes, const BandRange& weights) {
    switch (result.flaw) {
        case SizeAndWeightFlaw::SizeInverted:
            return AddInvertedBand(reporter, bands, result.nRow, sizes);
        case SizeAndWeightFlaw::WeightInverted:
            return AddInvertedBand(reporter, bands, result.nRow, weights);
        case SizeAndWeightFlaw::SizeNotContiguous:
            return AddJoint(reporter, bands, result, sizes);
        case SizeAndWeightFlaw::WeightNotContiguous:
            return AddJoint(reporter, bands, result, weights);
        case SizeAndWeightFlaw::NoBands:
            return reporter.AddAboutValues<FindingCode::NoCompleteBand>();
        case SizeAndWeightFlaw::MissingOrZero:
            return reporter.AddAboutValues<FindingCode::ZeroInBand>(result.nRow);
        case SizeAndWeightFlaw::SizeIncomplete:
            return reporter.AddAboutValues<FindingCode::SizeMissing>(result.nRow);
        case SizeAndWeightFlaw::WeightIncomplete:
            return reporter.AddAboutValues<FindingCode::WeightMissing>(result.nRow);
        case SizeAndWeightFlaw::SizeAndWeightIncomplete:
            return reporter.AddAboutValues<FindingCode::SizeAndWeightMissing>(result.nRow);
        case SizeAndWeightFlaw::ThicknessMissing:
            return reporter.AddAboutValues<FindingCode::ThicknessMissing>(result.nRow);
        case SizeAndWeightFlaw::IncompleteWhileTyping:
        case SizeAndWeightFlaw::None:
            break;
    }
}

void HintAtThinnerWalls(const Reporter& reporter, const Bands& bands) {
    for (std::size_t i = 1; i < bands.size(); ++i) {
        const double thickness = bands[i].band.thickness, before = bands[i - 1].band.thickness;
        if (thickness != kValueNotGiven && thickness < before - kTolerance)
            reporter.OfParameter(kThicknessId).AddAboutValues<FindingCode::ThinnerWall>(bands[i].nRow);
    }
}

}  // namespace

void CheckGroupBands(const RuleToCheck& rule) {
    if (!FindParameter(rule.Rule().m_paramArray, kMassUnitId)) return;
    const RuleUnits units = UnitsOf(rule.Rule());
    using Band = CastSizeAndWeightBand;
    const BandRange sizes{&Band::sizeMin, &Band::sizeMax, "size band", "sizes",
                          UnitSymbol(Quantity::Length, units)};
    const BandRange weights{&Band::weightMin, &Band::weightMax, "weight band", "weights",
                            UnitSymbol(Quantity::Mass, units)};
    const auto& groups = rule.Rule().m_constraintArray;
    for (int i = 0; i < groups.GetCount(); ++i) {
        if (!rule.IsRead(i, {kSizeMinId, kSizeMaxId, kWeightMinId, kWeightMaxId, kThicknessId})) continue;
        const Bands bands = NumberBands(ReadBands(*groups[i]));
        const Reporter reporter = rule.reporter.InConstraint(i);
        AddFlaw(reporter, bands, CheckSizeAndWeightBands(bands), sizes, weights);
        HintAtThinnerWalls(reporter, bands);
    }
}
