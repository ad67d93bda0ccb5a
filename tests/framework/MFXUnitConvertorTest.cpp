#include "MFXUnitConvertor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace {

// A quantity, how it is converted, and its units' sizes by code, in any one unit; 0 where no unit has the code.
struct Quantity {
    const char* pszName;
    double (*convert)(double value, long nFromUnit, long nToUnit);
    std::vector<double> sizes;
};

const Quantity kQuantities[] = {
    {"length",
     [](double value, long nFrom, long nTo) {
         return CMFXUnitConvertor().ConversionFromOneUnitToAnother(value, 1, nFrom, nTo);
     },
     {1, 1, 10, 25.4, 1000, 304.8, 0.001, 0.0254, 100, 914.4, 1e6}},
    {"angle",
     [](double value, long nFrom, long nTo) {
         return CMFXUnitConvertor().ConversionFromOneUnitToAnother(value, 2, nFrom, nTo);
     },
     {1, 180 / std::numbers::pi, 0.9, 1.0 / 60}},
    {"mass",
     [](double value, long nFrom, long nTo) {
         return CMFXUnitConvertor().ConversionFromOneUnitToAnotherForMass(value, nFrom, nTo);
     },
     {0, 1, 1e3, 1e6, 1e9, 453592.37}},
    {"density",
     [](double value, long nFrom, long nTo) {
         return CMFXUnitConvertor().ConversionFromOneUnitToAnotherForDensity(value, nFrom, nTo);
     },
     {0, 1, 1000, 1000, 0.45359237 / (0.0254 * 0.0254 * 0.0254), 0.45359237 / (0.3048 * 0.3048 * 0.3048)}},
};

}  // namespace

TEST(MFXUnitConvertorTest, ConvertsByTheUnitsSizes) {
    for (const Quantity& quantity : kQuantities) {
        const long nUnits = static_cast<long>(quantity.sizes.size());
        for (long nFrom = -1; nFrom <= nUnits; ++nFrom) {
            for (long nTo = -1; nTo <= nUnits; ++nTo) {
                SCOPED_TRACE(testing::Message() << quantity.pszName << " from " << nFrom << " to " << nTo);
                const auto size = [&](long nUnit) {
                    return nUnit < 0 || nUnit == nUnits ? 0 : quantity.sizes[static_cast<std::size_t>(nUnit)];
                };
                const double ratio = size(nFrom) == 0 || size(nTo) == 0 ? 1 : size(nFrom) / size(nTo);
                const double there = quantity.convert(16.3, nFrom, nTo);
                EXPECT_NEAR(there, 16.3 * ratio, 16.3 * ratio * 1e-14);
                EXPECT_NEAR(quantity.convert(there, nTo, nFrom), 16.3, 1e-9);
                if (ratio == 1) EXPECT_EQ(there, 16.3);
            }
        }
    }
}

TEST(MFXUnitConvertorTest, RoundNumbersStayRound) {
    const CMFXUnitConvertor convertor;
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnother(1, 1, LengthInch, LengthMillimetre), 25.4);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnother(25.4, 1, LengthMillimetre, LengthInch), 1);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnother(3, 1, LengthFoot, LengthYard), 1);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnother(90, 2, AngleDegree, AngleGradian), 100);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnotherForMass(1, MassPound, MassKilogram), 0.45359237);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnotherForDensity(7.2, 2, 3), 7.2);
    EXPECT_EQ(convertor.ConversionFromOneUnitToAnother(7, 3, 1, 2), 7) << "unknown quantity";
}
