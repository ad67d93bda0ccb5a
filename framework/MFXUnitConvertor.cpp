#include "MFXUnitConvertor.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>

namespace {

// A unit's size in the quantity's base unit as a ratio, both parts exact wherever the unit is defined
// exactly.
struct UnitSize {
    double numerator;
    double denominator;
};

constexpr UnitSize kUnknown{0, 1};

// In millimetres, by MfxLengthUnit_e.
constexpr UnitSize kLengths[] = {{1, 1},    {1, 1},       {10, 1},  {254, 10},  {1000, 1},   {3048, 10},
                                 {1, 1000}, {254, 10000}, {100, 1}, {9144, 10}, {1000000, 1}};

// In degrees, by MfxAngleUnit_e.
constexpr UnitSize kAngles[] = {{1, 1}, {180, std::numbers::pi}, {9, 10}, {1, 60}};

// In grams, by MfxMassUnit_e. The pound is 0.45359237 kg.
constexpr UnitSize kMasses[] = {kUnknown, {1, 1000}, {1, 1}, {1000, 1}, {1000000, 1}, {45359237, 100000}};

// In kilograms per cubic metre, by MfxDensityUnit_e. A cubic inch is 16387.064 mm3, a cubic foot 28316846.592
// mm3.
constexpr UnitSize kDensities[] = {
    kUnknown, {1, 1}, {1000, 1}, {1000, 1}, {453592370000, 16387064}, {453592370000, 28316846592}};

double Convert(double value, std::span<const UnitSize> units, long nFromUnit, long nToUnit) {
    const auto find = [units](long nUnit) {
        return nUnit >= 0 && static_cast<std::size_t>(nUnit) < units.size()
                   ? units[static_cast<std::size_t>(nUnit)]
                   : kUnknown;
    };
    const UnitSize from = find(nFromUnit), to = find(nToUnit);
    if (from.numerator == 0 || to.numerator == 0) return value;
    const double numerator = from.numerator * to.denominator, denominator = from.denominator * to.numerator;
    const double converted = value * numerator / denominator;
    if (!std::isfinite(converted)) return value / denominator * numerator;  // the product alone may be too large
    return converted;
}

}  // namespace

double CMFXUnitConvertor::ConversionFromOneUnitToAnother(double value, long nQuantity, long nFromUnit,
                                                         long nToUnit) const {
    if (nQuantity == QuantityLength) return Convert(value, kLengths, nFromUnit, nToUnit);
    if (nQuantity == QuantityAngle) return Convert(value, kAngles, nFromUnit, nToUnit);
    return value;
}

double CMFXUnitConvertor::ConversionFromOneUnitToAnotherForMass(double value, long nFromUnit,
                                                                long nToUnit) const {
    return Convert(value, kMasses, nFromUnit, nToUnit);
}

double CMFXUnitConvertor::ConversionFromOneUnitToAnotherForDensity(double value, long nFromUnit,
                                                                   long nToUnit) const {
    return Convert(value, kDensities, nFromUnit, nToUnit);
}
