#include "MFXUnitConvertor.h"

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

namespace {

constexpr long kMass = 3, kDensity = 4, kNone = 5;  // beside those of MfxQuantity_e

double Convert(double value, long nQuantity, long nFrom, long nTo) {
    const CMFXUnitConvertor convertor;
    if (nQuantity == kMass) return convertor.ConversionFromOneUnitToAnotherForMass(value, nFrom, nTo);
    if (nQuantity == kDensity) return convertor.ConversionFromOneUnitToAnotherForDensity(value, nFrom, nTo);
    return convertor.ConversionFromOneUnitToAnother(value, nQuantity, nFrom, nTo);
}

}  // namespace

TEST(MFXUnitConvertorTest, ConvertsBetweenAllUnits) {
    constexpr double kCubicInchInMetres = 0.0254 * 0.0254 * 0.0254, kPound = 0.45359237;
    constexpr double kDense = kPound / kCubicInchInMetres;
    const struct {
        long nQuantity, nFirstCode;
        std::vector<double> amounts;  // the same one in each unit, in the order of the codes
    } kQuantities[] = {
        {QuantityLength, 0, {304.8, 304.8, 30.48, 12, 0.3048, 1, 304800, 12000, 3.048, 1.0 / 3, 0.0003048}},
        {QuantityAngle, 0, {180, std::numbers::pi, 200, 10800}},
        {kMass, 1, {kPound * 1e6, kPound * 1000, kPound, kPound / 1000, 1}},
        {kDensity, 1, {kDense, kDense / 1000, kDense / 1000, 1, 1728}},
    };
    for (const auto& [nQuantity, nFirstCode, amounts] : kQuantities) {
        const long nEndCode = nFirstCode + static_cast<long>(amounts.size());
        for (long nFrom = nFirstCode; nFrom < nEndCode; ++nFrom) {
            SCOPED_TRACE(testing::Message() << "quantity " << nQuantity << ", from " << nFrom);
            const double amount = amounts[static_cast<std::size_t>(nFrom - nFirstCode)];
            for (long nTo = nFirstCode; nTo < nEndCode; ++nTo)
                EXPECT_NEAR(Convert(amount, nQuantity, nFrom, nTo) /
                                amounts[static_cast<std::size_t>(nTo - nFirstCode)],
                            1, 1e-14)
                    << nTo;
            for (const long nUnknown : {nFirstCode - 1, nEndCode}) {
                EXPECT_EQ(Convert(7, nQuantity, nFrom, nUnknown), 7);
                EXPECT_EQ(Convert(7, nQuantity, nUnknown, nFrom), 7);
            }
        }
    }
    EXPECT_EQ(Convert(7, kNone, 1, 2), 7);
    EXPECT_EQ(Convert(1, QuantityLength, LengthInch, LengthMillimetre), 25.4) << "exactly";
    EXPECT_EQ(Convert(1e308, QuantityLength, LengthInch, LengthInch), 1e308) << "no overflow on the way";
}
