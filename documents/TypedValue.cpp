#include "TypedValue.h"

#include "EditError.h"
#include "MassUnits.h"
#include "Text.h"
#include "UnitNames.h"

#include <charconv>
#include <cctype>

namespace {

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

const char* NounOf(Quantity quantity) {
    switch (quantity) {
        case Quantity::Length:
            return "a length";
        case Quantity::Angle:
            return "an angle";
        case Quantity::Mass:
            return "a weight";
        case Quantity::None:
            break;
    }
    return "a number without a unit";
}

std::string KnownUnits(Quantity quantity) {
    if (quantity == Quantity::Length) return "; its units are " + LengthUnitSymbols();
    if (quantity == Quantity::Angle) return "; its units are " + AngleUnitSymbols();
    return quantity == Quantity::Mass ? "; its units are " + MassUnitLabels() : "";
}

std::optional<int> FindUnitOf(Quantity quantity, const std::string& name) {
    if (quantity == Quantity::Length) return FindLengthUnit(name);
    if (quantity == Quantity::Angle) return FindAngleUnit(name);
    const int mass = quantity == Quantity::Mass ? FindMassUnit(FromUtf8(name)) : 0;
    return mass ? std::optional(mass) : std::nullopt;
}

// The rule's units, but for that of the quantity.
RuleUnits WithUnit(RuleUnits units, Quantity quantity, int unit) {
    (quantity == Quantity::Length  ? units.lengthUnit
     : quantity == Quantity::Angle ? units.angleUnit
                                   : units.massUnit) = unit;
    return units;
}

[[noreturn]] void Refuse(std::string_view text, const std::string& reason) {
    throw EditError("\"" + std::string(text) + "\" " + reason);
}

double ParseNumber(std::string_view text, Quantity quantity, const RuleUnits& units) {
    double number = 0.0;
    const bool isNegative = text.starts_with('-');
    const bool hasDigit =
        text.size() > isNegative &&
        (std::isdigit(static_cast<unsigned char>(text[isNegative])) || text[isNegative] == '.');
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!hasDigit || parsed.ec != std::errc()) Refuse(text, "is not a number with a decimal point");
    if (isNegative) Refuse(text, "is negative");
    const std::string unit(Trimmed(std::string_view(parsed.ptr, text.data() + text.size())));
    if (unit.empty()) return number;
    const std::optional<int> code = FindUnitOf(quantity, unit);
    if (!code)
        Refuse(text, "does not fit: the value is " + std::string(NounOf(quantity)) + KnownUnits(quantity));
    return ConvertNumber(number, quantity, WithUnit(units, quantity, *code), units);
}

std::string RequireOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    std::string known;
    for (const std::string_view word : words) {
        if (text == word) return std::string(word);
        known += (known.empty() ? "" : " or ") + std::string(word);
    }
    Refuse(text, "is not " + known);
}

std::string RequireWholeNumber(std::string_view text) {
    int number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size())
        Refuse(text, "is not a whole number");
    return std::string(text);
}

bool MayBeUnbounded(const RuleValue& place) {
    return place.kind == ValueKind::Cell || IsBandParameter(place.location.paramId);
}

}  // namespace

ValueContent ParseTypedValue(const std::string& typed, const RuleValue& place, const RuleUnits& units) {
    const std::string_view text = Trimmed(typed);
    switch (place.kind) {
        case ValueKind::Status:
        case ValueKind::Severity:
            return RequireWholeNumber(text);
        case ValueKind::ConstraintActive:
        case ValueKind::ParameterActive:
            return RequireOneOf(text, {"yes", "no"});
        case ValueKind::Text:
            if (place.location.paramId == kMassUnitId && !FindMassUnit(FromUtf8(std::string(text))))
                Refuse(text, "is not a mass unit: " + MassUnitLabels());
            return std::string(text);
        default:
            break;
    }
    if (MayBeUnbounded(place) && text == "-") return std::monostate();
    if (MayBeUnbounded(place) && place.quantity == Quantity::Length && text == "no limit")
        return std::string(text);
    return ParseNumber(text, place.quantity, units);
}
