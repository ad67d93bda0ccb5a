#include "DifferenceOutput.h"

#include "Console.h"
#include "TextTable.h"

namespace {

// "0 to 25.4 mm"; sizes and weights are pairs.
std::string BoundsText(const BandRow& bounds) {
    std::string text;
    for (std::size_t i = 0; i + 1 < bounds.size(); i += 2) {
        const bool isGiven =
            FormatContent(bounds[i].content) != "-" || FormatContent(bounds[i + 1].content) != "-";
        if (!isGiven) continue;
        const RuleValue& withUnit = bounds[i].unit.empty() ? bounds[i + 1] : bounds[i];
        text += (text.empty() ? " " : ", ") + FormatContent(bounds[i].content) + " to " +
                FormatContent(bounds[i + 1].content) + (withUnit.unit.empty() ? "" : " " + withUnit.unit);
    }
    return text;
}

std::string ValueName(const Difference& difference) {
    const bool isRow = difference.scope == DifferenceScope::Row;
    return (difference.constraint.empty() ? "" : difference.constraint + ": ") + difference.label +
           (isRow ? BoundsText(difference.bounds) : "") +
           (difference.row ? ", row " + std::to_string(difference.row) : "");
}

}  // namespace

void PrintDifferences(const std::vector<Difference>& differences, const std::string& left,
                      const std::string& right) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({"rule", "value", left, right});
    const auto format = [](const std::optional<RuleValue>& value) {
        return value ? FormatRuleValue(*value) : "(none)";
    };
    for (const Difference& difference : differences)
        table.Add(
            {difference.rule, ValueName(difference), format(difference.left), format(difference.right)});
    if (!differences.empty()) Print(table.Format(0));
}

void PrintConflicts(const std::vector<Conflict>& conflicts, const ConflictNames& names) {
    for (const Conflict& conflict : conflicts)
        PrintError(Escaped("conflict: " + conflict.key + ": " + names.expected + " " + conflict.expected +
                           ", " + names.found + " " + conflict.found + ", " + names.wanted + " " +
                           conflict.wanted) +
                   "\n");
}
