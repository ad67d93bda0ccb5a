#include "Conversion.h"

#include "DocumentCheck.h"
#include "Text.h"

#include <algorithm>
#include <cmath>

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

// Each value that was and still is there, with what it should be now. Older forms are written as today's:
// their values are not compared.
std::vector<ValueLoss> CompareWithExact(const DocumentValues& before, const RuleDocument& converted) {
    std::vector<ValueLoss> compared;
    for (std::size_t i = 0; i < before.values.size(); ++i) {
        const RuleDocument::Entry& entry = converted.GetEntries()[i];
        if (!entry.rule) continue;
        const std::vector<RuleValue> values = ListRuleValues(*entry.rule);
        const RuleValueIndex index(values);
        RuleUnits units = UnitsOf(*entry.rule);
        for (const RuleValue& value : before.values[i]) {
            const RuleValue* after = index.FindCounterpart(value);
            if (!after) continue;
            const RuleValue exact = ConvertValue(value, before.units[i], units);
            const double size = RelativeDifference(exact.content, after->content);
            if (size == 0.0) continue;
            compared.push_back({.line = converted.GetLine(entry, value.location),
                                .rule = ToUtf8(entry.rule->m_strDisplayName),
                                .before = value,
                                .exact = exact,
                                .after = *after,
                                .size = size});
        }
    }
    return compared;
}

bool IsTooLarge(const ValueLoss& loss) {
    const double* number = std::get_if<double>(&loss.exact.content);
    return number && !std::isfinite(*number);
}

}  // namespace

Conversion ConvertDocument(RuleDocument& document, const UnitPair& units) {
    Conversion conversion;
    conversion.ignored = FindIgnoredContent(document);
    if (!conversion.ignored.empty()) return conversion;
    const DocumentValues before(document);
    document.ConvertUnits(units);
    conversion.losses = CompareWithExact(before, document);
    std::ranges::copy_if(conversion.losses, std::back_inserter(conversion.tooLarge), IsTooLarge);
    if (conversion.tooLarge.empty()) conversion.ignored = FindIgnoredContent(document);
    std::ranges::stable_sort(conversion.losses, std::greater(), &ValueLoss::size);
    return conversion;
}
