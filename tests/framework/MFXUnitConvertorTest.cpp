#include "MFXUnitConvertor.h"

#include <gtest/gtest.h>

#include <map>
#include <numbers>
#include <vector>

TEST(MFXUnitConvertorTest, ConvertsByTheUnitsSizes) {
    static const CMFXUnitConvertor convertor;
    const auto convert = [](int nQuantity, double value, long nFrom, long nTo) {
        if (nQuantity == 3) return convertor.ConversionFromOneUnitToAnotherForMass(value, nFrom, nTo);
        if (nQuantity == 4) return convertor.ConversionFromOneUnitToAnotherForDensity(value, nFrom, nTo);
        return convertor.ConversionFromOneUnitToAnother(value, nQuantity, nFrom, nTo);
    };
    constexpr double kPound = 0.45359237, kInch = 0.0254, kFoot = 0.3048;
    // The units' sizes by code, in any one unit, 0 for none; after length and angle mass and density.
    const std::map<int, std::vector<double>> quantities = {
        {1, {1, 1, 10, 25.4, 1000, 304.8, 0.001, 0.0254, 100, 914.4, 1e6}},
        {2, {1, 180 / std::numbers::pi, 0.9, 1.0 / 60}},
        {3, {0, 1, 1e3, 1e6, 1e9, 453592.37}},
        {4, {0, 1, 1000, 1000, kPound / (kInch * kInch * kInch), kPound / (kFoot * kFoot * kFoot)}}};
    for (const auto& [nQuantity, sizes] : quantities) {
        const long nUnits = static_cast<long>(sizes.size());
        for (long i = 0; i < (nUnits + 2) * (nUnits + 2); ++i) {
            const long nFrom = i / (nUnits + 2) - 1, nTo = i % (nUnits + 2) - 1;
            const auto size = [&](long n) { return n < 0 || n == nUnits ? 0 : sizes[n]; };
            const double ratio = size(nFrom) * size(nTo) == 0 ? 1 : size(nFrom) / size(nTo);
            const double there = convert(nQuantity, 16.3, nFrom, nTo);
            SCOPED_TRACE(testing::Message() << "quantity " << nQuantity << ": " << nFrom << " to " << nTo);
            EXPECT_NEAR(there / (16.3 * ratio), 1, 1e-14);
            EXPECT_NEAR(convert(nQuantity, there, nTo, nFrom), 16.3, 1e-9);
            EXPECT_TRUE(ratio != 1 || there == 16.3);
        }
    }
    EXPECT_TRUE(convert(1, 1, 3, 1) == 25.4 && convert(1, 25.4, 1, 3) == 1) << "exactly";
    EXPECT_TRUE(convert(1, 1e308, 3, 3) == 1e308 && convert(1, 1e306, 3, 4) < 3e304)
        << "no overflow on the way";
    EXPECT_EQ(convert(5, 7, 1, 2), 7) << "unknown quantity";
}
