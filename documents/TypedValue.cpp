#include "TypedValue.h"

#include "EditError.h"
#include "MassUnits.h"
#include "Text.h"
#include "UnitNames.h"

#include <charconv>
#include <cctype>

namespace {

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
    const std::string unit(WithoutBlanks(std::string_view(parsed.ptr, text.data() + text.size())));
    if (unit.empty()) return number;
    if (unit.starts_with(',')) Refuse(text, "is not a number with a decimal point");
    const std::optional<int> code = FindUnitOf(quantity, unit);
    if (!code)
        Refuse(text, "does not fit: the value is " + std::string(NounOf(quantity)) + KnownUnits(quantity));
    return ConvertNumber(number, quantity, WithUnit(units, quantity, *code), units);
}

std::string RequireOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    std::string known;
    for (const std::string_view word : words) {
        if (IsSameWord(text, word)) return std::string(word);
        known += (known.empty() ? "" : " or ") + std::string(word);
    }
    Refuse(text, "is not " + known);
}

// The label as records keep it.
std::string RequireMassUnit(std::string_view text) {
    const std::optional<int> unit = FindUnitOf(Quantity::Mass, std::string(text));
    if (!unit) Refuse(text, "is not a mass unit: " + MassUnitLabels());
    return ToUtf8(GetMassUnitLabel(*unit));
}

std::string RequireWholeNumber(std::string_view text) {
    int number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    if (parsed.ec == std::errc::result_out_of_range) Refuse(text, "is too large a number");
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size())
        Refuse(text, "is not a whole number");
    return std::string(text);
}

bool MayBeUnbounded(const RuleValue& place) {
    return place.kind == ValueKind::Cell || IsBandParameter(place.location.paramId);
}

}  // namespace

ValueContent ParseTypedValue(const std::string& typed, const RuleValue& place, const RuleUnits& units) {
    const std::string_view text = WithoutBlanks(typed);
    switch (place.kind) {
        case ValueKind::Status:
        case ValueKind::Severity:
            return RequireWholeNumber(text);
        case ValueKind::ByMaterial:
        case ValueKind::ConstraintActive:
        case ValueKind::ParameterActive:
            return RequireOneOf(text, {"yes", "no"});
        case ValueKind::Text:
            return place.location.paramId == kMassUnitId ? RequireMassUnit(text) : std::string(text);
        default:
            break;
    }
    if (MayBeUnbounded(place) && text == "-") return std::monostate();
    if (MayBeUnbounded(place) && place.quantity == Quantity::Length && text == "no limit")
        return std::string(text);
    return ParseNumber(text, place.quantity, units);
}
