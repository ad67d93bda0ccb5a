#include "MFXUnitConvertor.h"

#include <gtest/gtest.h>

#include <numbers>

TEST(MFXUnitConvertorTest, ConvertsByTheUnitsRatios) {
    constexpr long kMass = 3, kDensity = 4, kNone = 5;  // beside those of MfxQuantity_e
    const struct {
        long nQuantity;
        double value;
        long nFrom;
        double converted;
        long nTo;
    } cases[] = {{QuantityLength, 1, LengthModelDefault, 1, LengthMillimetre},
                 {QuantityLength, 1, LengthInch, 25.4, LengthMillimetre},
                 {QuantityLength, 1, LengthFoot, 12, LengthInch},
                 {QuantityLength, 1, LengthYard, 3, LengthFoot},
                 {QuantityLength, 1, LengthInch, 1000, LengthThou},
                 {QuantityLength, 1, LengthMillimetre, 1000, LengthMicrometre},
                 {QuantityLength, 10, LengthMillimetre, 1, LengthCentimetre},
                 {QuantityLength, 10, LengthCentimetre, 1, LengthDecimetre},
                 {QuantityLength, 10, LengthDecimetre, 1, LengthMetre},
                 {QuantityLength, 1, LengthKilometre, 1000, LengthMetre},
                 {QuantityLength, 1e308, LengthInch, 1e308, LengthInch},  // no overflow on the way
                 {QuantityLength, 7, LengthInch, 7, -1},
                 {QuantityLength, 7, LengthKilometre + 1, 7, LengthInch},
                 {QuantityAngle, 180, AngleDegree, std::numbers::pi, AngleRadian},
                 {QuantityAngle, 360, AngleDegree, 400, AngleGradian},
                 {QuantityAngle, 1, AngleDegree, 60, AngleArcMinute},
                 {QuantityAngle, 7, AngleRadian, 7, AngleArcMinute + 1},
                 {kMass, 1, MassPound, 453.59237, MassGram},
                 {kMass, 1, MassKilogram, 1e6, MassMilligram},
                 {kMass, 1, MassTonne, 1000, MassKilogram},
                 {kMass, 7, 0, 7, MassGram},
                 {kDensity, 1, DensityGramPerCubicCentimetre, 1000, DensityKilogramPerCubicMetre},
                 {kDensity, 1, DensityGramPerCubicCentimetre, 1, DensityTonnePerCubicMetre},
                 {kDensity, 1, DensityPoundPerCubicInch, 1728, DensityPoundPerCubicFoot},
                 {kDensity, 0.3048 * 0.3048 * 0.3048, DensityPoundPerCubicFoot, 0.45359237,
                  DensityKilogramPerCubicMetre},
                 {kDensity, 7, DensityPoundPerCubicFoot, 7, 0},
                 {kNone, 7, 1, 7, 2}};
    const CMFXUnitConvertor convertor;
    const auto convert = [&](long nQuantity, double value, long nFrom, long nTo) {
        if (nQuantity == kMass) return convertor.ConversionFromOneUnitToAnotherForMass(value, nFrom, nTo);
        if (nQuantity == kDensity)
            return convertor.ConversionFromOneUnitToAnotherForDensity(value, nFrom, nTo);
        return convertor.ConversionFromOneUnitToAnother(value, nQuantity, nFrom, nTo);
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "quantity " << c.nQuantity << ": " << c.nFrom << " to " << c.nTo);
        EXPECT_NEAR(convert(c.nQuantity, c.value, c.nFrom, c.nTo) / c.converted, 1, 1e-14);
        EXPECT_NEAR(convert(c.nQuantity, c.converted, c.nTo, c.nFrom) / c.value, 1, 1e-14);
    }
    EXPECT_EQ(convert(QuantityLength, 1, LengthInch, LengthMillimetre), 25.4) << "exactly";
}
