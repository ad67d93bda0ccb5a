#include "ConversionLoss.h"

#include "Finding.h"
#include "Text.h"

#include <cmath>
#include <functional>
#include <map>

namespace {

constexpr int kDigits = 10;

// "Variable Draft Angle: parameter 29183, row 2, angle 1: "
std::string PlaceOf(const CMfxRule& rule, const RuleValue& value) {
    return ToUtf8(rule.m_strDisplayName) + ": parameter " + std::to_string(value.place.nParamId) + ", " +
           (value.constraint.empty() ? "" : value.constraint + ": ") +
           (value.nRow ? "row " + std::to_string(value.nRow) + ", " : "") + value.label + ": ";
}

// "3 deg became 0.05236 rad instead of 0.05235987756 rad"
std::string Sentence(const RuleValue& before, const RuleValue& exact, const RuleValue& after) {
    const bool bNumber = std::holds_alternative<double>(before.value);
    return (bNumber ? FormatRuleValue(before, kDigits) : "an empty cell") + " became " +
           FormatRuleValue(after, kDigits) +
           (bNumber ? " instead of " + FormatRuleValue(exact, kDigits) : "");
}

}  // namespace

ConversionLoss::ConversionLoss(const RuleDocument& document) : m_units(document.GetUnits()) {
    for (const RuleDocument::Entry& entry : document.GetEntries())
        m_values.push_back(entry.pRule ? ListRuleValues(*entry.pRule) : std::vector<RuleValue>());
}

template <class Visit>
void ConversionLoss::ForEachValue(const RuleDocument& converted, Visit visit) const {
    const UnitPair units = converted.GetUnits();
    for (std::size_t nEntry = 0; nEntry < m_values.size(); ++nEntry) {
        const RuleDocument::Entry& entry = converted.GetEntries()[nEntry];
        if (!entry.pRule) continue;
        const std::vector<RuleValue> values = ListRuleValues(*entry.pRule);
        const PlaceIndex index(values);
        for (const RuleValue& before : m_values[nEntry])
            if (const RuleValue* pAfter = index.Find(before))  // older forms are written as today's
                visit(entry, before, InUnits(before, m_units, units), InUnits(*pAfter, units, units));
    }
}

bool ConversionLoss::PrintTooLarge(const RuleDocument& converted) const {
    bool bPrinted = false;
    ForEachValue(converted, [&](const auto& entry, const auto& before, const auto& exact, const auto&) {
        const double* pExact = std::get_if<double>(&exact.value);
        if (!pExact || std::isfinite(*pExact)) return;
        PrintError(converted.Place(converted.GetLine(entry, before.place)) +
                   Escaped(PlaceOf(*entry.pRule, before) + FormatRuleValue(before, kDigits) +
                           " is too large a number in " + exact.unit) +
                   "\n");
        bPrinted = true;
    });
    return bPrinted;
}

void ConversionLoss::Print(const RuleDocument& converted, bool bAll) const {
    constexpr std::size_t kMostLines = 10;
    std::multimap<double, std::string, std::greater<>> losses;
    ForEachValue(converted, [&](const auto& entry, const auto& before, const auto& exact, const auto& after) {
        if (const double loss = LossOf(exact, after); loss != 0.0)
            losses.emplace(loss, converted.Place(converted.GetLine(entry, before.place)) +
                                     Escaped(PlaceOf(*entry.pRule, before) + Sentence(before, exact, after)) +
                                     "\n");
    });
    std::size_t nLines = 0;
    for (const auto& [loss, line] : losses)
        if (++nLines <= kMostLines || bAll) PrintError(line);
    if (nLines > kMostLines && !bAll)
        PrintError("and " + std::to_string(nLines - kMostLines) + " more, with smaller losses\n");
}
