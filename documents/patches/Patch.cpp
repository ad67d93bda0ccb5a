#include "Patch.h"

#include <algorithm>
#include <set>

namespace {

const RuleContent* Find(const std::vector<RuleContent>& contents, const std::string& ruleKey) {
    const auto found = std::ranges::find(contents, ruleKey, &RuleContent::key);
    return found != contents.end() ? &*found : nullptr;
}

Patch PatchOf(const std::vector<RuleContent>& left, const std::vector<RuleContent>& right,
              const UnitPair& units) {
    Patch patch{.units = units, .differences = CompareContents(left, right), .tables = {}, .records = {}};
    std::set<std::string> done;  // tables, and records
    for (const Difference& difference : patch.differences) {
        const std::string ruleKey = RuleKeyOf(difference);
        const RuleContent *before = Find(left, ruleKey), *after = Find(right, ruleKey);
        if (!difference.ruleId && done.insert(ruleKey).second)
            patch.records.push_back({ruleKey, before ? before->record : "", after ? after->record : ""});
        if (!difference.table.empty() && done.insert(ruleKey + "/" + difference.table).second)
            patch.tables.push_back(
                {ruleKey + "/" + difference.table, TablesOf(before->values)[difference.table]});
    }
    return patch;
}

}  // namespace

Patch MakePatch(const RuleDocument& left, const RuleDocument& right) {
    const UnitPair units = left.GetUnits();
    return PatchOf(ContentsOf(left, units), ContentsOf(right, units), units);
}

Patch MakePatchFromDefaults(const RuleDocument& document) {
    return PatchOf(DefaultsFor(document), ContentsOf(document, document.GetUnits()), document.GetUnits());
}
