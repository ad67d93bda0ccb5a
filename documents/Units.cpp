#include "Units.h"

#include "MassUnits.h"
#include "Text.h"
#include "UnitNames.h"

#include <algorithm>
#include <cctype>

namespace {

int ShownLengthUnit(int code) {
    return code == LengthModelDefault ? int{LengthMillimetre} : code;
}

}  // namespace

RuleUnits UnitsOf(const CMfxRule& rule) {
    RuleUnits units{rule.m_nLengthUnit, rule.m_nAngleUnit};
    const CMfxParamStorage* label = FindParameter(rule.m_paramArray, kMassUnitId);
    if (!label || label->GetType() != TypeText || label->GetValues<CString>().IsEmpty()) return units;
    if (const int massUnit = FindMassUnit(label->GetValues<CString>()[0])) units.massUnit = massUnit;
    return units;
}

std::optional<int> FindLengthUnit(std::string_view name) {
    return FindUnit(kLengthUnits, name);
}
std::optional<int> FindAngleUnit(std::string_view name) {
    return FindUnit(kAngleUnits, name);
}

std::string LengthUnitSymbol(int lengthUnit) {
    return SymbolOfUnit(kLengthUnits, ShownLengthUnit(lengthUnit));
}

std::string AngleUnitSymbol(int angleUnit) {
    return SymbolOfUnit(kAngleUnits, angleUnit);
}

std::string UnitWords(const UnitPair& units) {
    const UnitName* length = FindUnitCode(kLengthUnits, ShownLengthUnit(units.m_nLengthUnit));
    const UnitName* angle = FindUnitCode(kAngleUnits, units.m_nAngleUnit);
    return std::string(length ? length->words : "?") + " and " + (angle ? angle->words : "?");
}

std::string UnitSymbol(Quantity quantity, const RuleUnits& units) {
    switch (quantity) {
        case Quantity::Length:
            return LengthUnitSymbol(units.lengthUnit);
        case Quantity::Angle:
            return AngleUnitSymbol(units.angleUnit);
        case Quantity::Mass:
            return ToUtf8(GetMassUnitLabel(units.massUnit));
        case Quantity::None:
            break;
    }
    return {};
}

std::optional<int> FindUnitOf(Quantity quantity, const std::string& name) {
    if (quantity == Quantity::Length) return FindLengthUnit(name);
    if (quantity == Quantity::Angle) return FindAngleUnit(name);
    std::string label = name;
    std::ranges::transform(label, label.begin(),
                           [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    const int mass = quantity == Quantity::Mass ? FindMassUnit(FromUtf8(label)) : 0;
    return mass ? std::optional(mass) : std::nullopt;
}

std::string KnownUnits(Quantity quantity) {
    if (quantity == Quantity::Length) return "; its units are " + LengthUnitSymbols();
    if (quantity == Quantity::Angle) return "; its units are " + AngleUnitSymbols();
    return quantity == Quantity::Mass ? "; its units are " + MassUnitLabels() : "";
}

RuleUnits WithUnit(RuleUnits units, Quantity quantity, int unit) {
    (quantity == Quantity::Length  ? units.lengthUnit
     : quantity == Quantity::Angle ? units.angleUnit
                                   : units.massUnit) = unit;
    return units;
}

double ConvertNumber(double number, Quantity quantity, const RuleUnits& from, const RuleUnits& to) {
    const CMFXUnitConvertor convertor;
    switch (quantity) {
        case Quantity::Length:
            return convertor.ConversionFromOneUnitToAnother(number, QuantityLength, from.lengthUnit,
                                                            to.lengthUnit);
        case Quantity::Angle:
            return convertor.ConversionFromOneUnitToAnother(number, QuantityAngle, from.angleUnit,
                                                            to.angleUnit);
        case Quantity::Mass:
            return convertor.ConversionFromOneUnitToAnotherForMass(number, from.massUnit, to.massUnit);
        case Quantity::None:
            break;
    }
    return number;
}

std::string LengthUnitSymbols() {
    return UnitSymbols(kLengthUnits);
}
std::string AngleUnitSymbols() {
    return UnitSymbols(kAngleUnits);
}

std::string MassUnitLabels() {
    std::string labels;
    for (const wchar_t* label : kMassUnitLabels) labels += (labels.empty() ? "" : ", ") + ToUtf8(label);
    return labels;
}
