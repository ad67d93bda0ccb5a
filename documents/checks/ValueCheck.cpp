#include "ValueCheck.h"

#include <algorithm>

IgnoredValues::IgnoredValues(const std::vector<Finding>& findings) {
    for (const Finding& finding : findings)
        if (finding.Kind().isIgnored)
            m_values.emplace(finding.entry, finding.location.constraint, finding.location.paramId);
}

bool IgnoredValues::HasAnyOf(int entry, int constraint, std::initializer_list<long> paramIds) const {
    return std::ranges::any_of(paramIds, [&](long paramId) {
        return m_values.contains({entry, constraint, paramId});
    });
}

bool RuleToCheck::IsRead(int constraint, std::initializer_list<long> paramIds) const {
    const auto entry = &reporter.GetEntry() - reporter.GetDocument().GetEntries().data();
    return !ignored.HasAnyOf(static_cast<int>(entry), constraint, paramIds);
}
