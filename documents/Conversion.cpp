#include "Conversion.h"

#include "DocumentCheck.h"
#include "DocumentError.h"
#include "Text.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

// The values of each of a document's rules, by entry, with the units that they are in.
struct DocumentValues {
    explicit DocumentValues(const RuleDocument& document) {
        for (const RuleDocument::Entry& entry : document.GetEntries()) {
            values.push_back(entry.rule ? ListRuleValues(*entry.rule) : std::vector<RuleValue>());
            units.push_back(entry.rule ? UnitsOf(*entry.rule) : RuleUnits());
        }
    }

    std::vector<std::vector<RuleValue>> values;
    std::vector<RuleUnits> units;
};

// What a value is in the units that the document is to be converted to.
RuleValue ExactValue(const RuleValue& value, const RuleUnits& from, const UnitPair& to) {
    return ConvertValue(value, from, {to.m_nLengthUnit, to.m_nAngleUnit, from.massUnit});
}

bool IsTooLarge(const RuleValue& value) {
    const double* number = std::get_if<double>(&value.content);
    return number && !std::isfinite(*number);
}

std::vector<ValueLoss> FindTooLarge(const RuleDocument& document, const DocumentValues& before,
                                    const UnitPair& to) {
    std::vector<ValueLoss> tooLarge;
    for (std::size_t i = 0; i < before.values.size(); ++i) {
        const RuleDocument::Entry& entry = document.GetEntries()[i];
        for (const RuleValue& value : before.values[i]) {
            const RuleValue exact = ExactValue(value, before.units[i], to);
            if (IsTooLarge(exact))
                tooLarge.push_back({.line = document.GetLine(entry, value.location),
                                    .rule = ToUtf8(entry.rule->m_strDisplayName),
                                    .before = value,
                                    .exact = exact});
        }
    }
    return tooLarge;
}

// The values that the conversion did not keep, in the document's order. Values of older forms have no
// counterpart and are left out.
std::vector<ValueLoss> FindLosses(const DocumentValues& before, const RuleDocument& converted) {
    std::vector<ValueLoss> losses;
    for (std::size_t i = 0; i < before.values.size(); ++i) {
        const RuleDocument::Entry& entry = converted.GetEntries()[i];
        if (!entry.rule) continue;
        const std::vector<RuleValue> values = ListRuleValues(*entry.rule);
        const RuleValueIndex index(values);
        for (const RuleValue& value : before.values[i]) {
            const RuleValue* after = index.FindCounterpart(value);
            if (!after) continue;
            const RuleValue exact = ExactValue(value, before.units[i], converted.GetUnits());
            const double size = RelativeDifference(exact.content, after->content);
            if (size != 0.0)
                losses.push_back({.line = converted.GetLine(entry, value.location),
                                  .rule = ToUtf8(entry.rule->m_strDisplayName),
                                  .before = value,
                                  .exact = exact,
                                  .after = *after,
                                  .size = size});
        }
    }
    return losses;
}

void ThrowIfNotUnderstood(const RuleDocument& converted) {
    const std::vector<Finding> ignored = FindIgnoredContent(converted);
    if (!ignored.empty())
        throw DocumentError(DocumentError::Kind::RuleNotWritten,
                            ToUtf8(converted.GetPath()) + ": the converted rules can't be read again: " +
                                DescribeFinding(ignored.front()));
}

}  // namespace

Conversion ConvertDocument(RuleDocument& document, const UnitPair& units) {
    Conversion conversion;
    conversion.ignored = FindIgnoredContent(document);
    if (!conversion.ignored.empty()) return conversion;
    const DocumentValues before(document);
    conversion.tooLarge = FindTooLarge(document, before, units);
    if (!conversion.tooLarge.empty()) return conversion;
    document.ConvertUnits(units);
    ThrowIfNotUnderstood(document);
    conversion.losses = FindLosses(before, document);
    std::ranges::stable_sort(conversion.losses, std::greater(), &ValueLoss::size);
    return conversion;
}
