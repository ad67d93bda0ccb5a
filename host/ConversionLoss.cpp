#include "ConversionLoss.h"

#include "Finding.h"
#include "Text.h"

#include <algorithm>
#include <map>

namespace {

// "row 2, angle 1: 3 deg became 0.05236 rad instead of 0.05235987756 rad"
std::string Sentence(const RuleValue& before, const RuleValue& exact, const RuleValue& after) {
    constexpr int kDigits = 10;
    const bool bNumber = std::holds_alternative<double>(before.value);
    return (before.constraint.empty() ? "" : before.constraint + ": ") +
           (before.nRow ? "row " + std::to_string(before.nRow) + ", " : "") + before.label + ": " +
           (bNumber ? FormatRuleValue(before, kDigits) : "an empty cell") + " became " +
           FormatRuleValue(after, kDigits) +
           (bNumber ? " instead of " + FormatRuleValue(exact, kDigits) : "");
}

}  // namespace

ConversionLoss::ConversionLoss(const RuleDocument& document) : m_units(document.GetUnits()) {
    for (const RuleDocument::Entry& entry : document.GetEntries())
        m_values.push_back(entry.pRule ? ListRuleValues(*entry.pRule) : std::vector<RuleValue>());
}

void ConversionLoss::Print(const RuleDocument& converted) const {
    constexpr std::size_t kMostLines = 10;
    const UnitPair units = converted.GetUnits();
    std::multimap<double, std::string, std::greater<>> losses;
    for (std::size_t nEntry = 0; nEntry < m_values.size(); ++nEntry) {
        const RuleDocument::Entry& entry = converted.GetEntries()[nEntry];
        if (!entry.pRule) continue;
        const std::vector<RuleValue> values = ListRuleValues(*entry.pRule);
        const PlaceIndex index(values);
        for (const RuleValue& before : m_values[nEntry]) {
            const RuleValue* pAfter = index.Find(before);
            if (!pAfter) continue;  // of an older form, which is written as today's
            const RuleValue exact = InUnits(before, m_units, units), after = InUnits(*pAfter, units, units);
            const double loss = LossOf(exact, after);
            if (loss == 0.0) continue;
            losses.emplace(loss, converted.Place(converted.GetLine(entry, before.place)) +
                                     ToUtf8(entry.pRule->m_strDisplayName) + ": parameter " +
                                     std::to_string(before.place.nParamId) + ", " +
                                     Sentence(before, exact, after) + "\n");
        }
    }
    std::size_t nLines = 0;
    for (const auto& [loss, line] : losses)
        if (++nLines <= kMostLines) PrintError(line);
    if (nLines > kMostLines)
        PrintError("and " + std::to_string(nLines - kMostLines) + " more, with smaller losses\n");
}
