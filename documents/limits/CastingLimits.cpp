#include "CastingLimits.h"

#include "NearestKeys.h"
#include "Text.h"

namespace {

using enum LimitAnswer;

constexpr LimitReason kCommonLimits{"common-limits", Found};
constexpr LimitReason kLimitsOfMaterial{"limits-of-material", Found};
constexpr LimitReason kBand{"band", Found};
constexpr LimitReason kValue{"value", Found};
constexpr LimitReason kSwitchedOff{"switched-off", NotInForce};
constexpr LimitReason kConstraintNotActive{"constraint-not-active", NotInForce};
constexpr LimitReason kNoGroups{"no-groups", NotInForce};
constexpr LimitReason kNoMaterialGiven{"no-material-given", Incomplete};
constexpr LimitReason kNoGroupGiven{"no-group-given", Incomplete};
constexpr LimitReason kNoSizeGiven{"no-size-given", Incomplete};
constexpr LimitReason kNoWeightGiven{"no-weight-given", Incomplete};
constexpr LimitReason kUnknownMaterial{"unknown-material", NotFound};
constexpr LimitReason kUnknownGroup{"unknown-group", NotFound};
constexpr LimitReason kNoBand{"no-band", NotFound};
constexpr LimitReason kNoValue{"no-value", NotFound};

CString InCapitals(CString name) {
    return name.MakeUpper();
}

std::string QuotedName(const std::string& name) {
    return Quoted(FromUtf8(name));
}

std::string NameOf(const CMfxRule& rule, int constraint) {
    return Quoted(rule.m_constraintArray[constraint]->m_strName);
}

// "; the nearest names are Steel, Bronze"; empty when there is none.
std::string NearestNames(const CMfxRule& rule, const std::string& name) {
    std::vector<std::string> names;
    for (const CMFXConstraint* constraint : rule.m_constraintArray)
        names.push_back(ToUtf8(constraint->m_strName));
    return "; the nearest names are " + NearestKeys(names, name);
}

// -1 for a name that no constraint has.
int FindConstraint(const std::map<CString, int>& constraintOfName, const std::string& name) {
    for (const CString& form : {FromUtf8(name), InCapitals(FromUtf8(name))})
        if (const auto found = constraintOfName.find(form); found != constraintOfName.end())
            return found->second;
    return -1;
}

bool IsYes(const ValuesByKey& values, const std::string& key) {
    const auto found = values.find(key);
    return found != values.end() && found->second->content == ValueContent("yes");
}

// Not so for what is not given, and for a text that is no number.
bool IsNumber(const ValueContent& content) {
    return std::holds_alternative<double>(content) || content == ValueContent("no limit");
}

// Adds the numbers of these keys to the values.
void Take(const ValuesByKey& values, const std::vector<std::string>& keys, std::vector<RuleValue>& taken) {
    for (const std::string& key : keys)
        if (const auto found = values.find(key); found != values.end() && IsNumber(found->second->content))
            taken.push_back(*found->second);
}

// Takes the two limits of a material, or the common ones. Says which are switched off.
void TakeLimits(const ValuesByKey& values, const std::string& prefix, RuleLimits& result) {
    for (const long paramId : {kThicknessMinId, kThicknessMaxId}) {
        const std::string key = prefix + std::to_string(paramId);
        if (IsYes(values, key + "/active"))
            Take(values, {key}, result.limits);
        else
            result.text += std::string("; the ") + (paramId == kThicknessMinId ? "minimum" : "maximum") +
                           " is switched off";
    }
    if (result.limits.empty()) result.reason = kSwitchedOff;
}

}  // namespace

CastingLimits::CastingLimits(const RuleDocument& document) : m_document(document) {
    m_units = {document.GetUnits().m_nLengthUnit, document.GetUnits().m_nAngleUnit};
    if (const RuleDocument::Entry* entry = document.FindRule(kSizeAndWeightRuleId))
        m_units.massUnit = UnitsOf(*entry->rule).massUnit;
    m_rules.reserve(document.GetEntries().size());
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.rule) Add(entry);
}

void CastingLimits::Add(const RuleDocument::Entry& entry) {
    const CMfxRule& rule = *entry.rule;
    RuleIndex& index =
        m_rules.emplace_back(RuleIndex{&entry, ListRuleValues(rule), {}, ConstraintKeys(rule), {}, {}});
    for (const RuleValue& value : index.values) index.valueOfKey.emplace(value.key, &value);
    for (int i = 0; i < rule.m_constraintArray.GetCount(); ++i)
        index.constraintOfName.emplace(rule.m_constraintArray[i]->m_strName, i);
    for (int i = 0; i < rule.m_constraintArray.GetCount(); ++i)
        index.constraintOfName.emplace(InCapitals(rule.m_constraintArray[i]->m_strName), i);
    if (rule.GetRuleId() == kSizeAndWeightRuleId)
        for (const std::string& key : index.constraintKeys)
            index.bands.push_back(BandsOfGroup(index.valueOfKey, key));
    if (rule.GetRuleId() == kDraftAngleRuleId) index.bands.push_back(BandsOfDraftTable(index.valueOfKey));
}

std::vector<RuleLimits> CastingLimits::Find(const Casting& casting) const {
    std::vector<RuleLimits> all;
    for (const RuleIndex& rule : m_rules) {
        all.push_back(FindFor(rule, casting));
        all.back().entry = rule.entry;
        if (!all.back().place.empty()) all.back().place = rule.entry->key + "/" + all.back().place;
    }
    return all;
}

RuleLimits CastingLimits::FindFor(const RuleIndex& rule, const Casting& casting) const {
    switch (rule.entry->rule->GetRuleId()) {
        case kUniformThicknessRuleId:
            return LimitsOfMaterial(rule, casting);
        case kSizeAndWeightRuleId:
            return LimitsOfGroup(rule, casting);
        case kDraftAngleRuleId:
            return LimitsOfDraftTable(rule, casting);
        default:
            return LargestVariation(rule);
    }
}

bool CastingLimits::IsMaterial(const std::string& name) const {
    for (const RuleIndex& rule : m_rules)
        if (rule.entry->rule->GetRuleId() == kUniformThicknessRuleId &&
            FindConstraint(rule.constraintOfName, name) >= 0)
            return true;
    return false;
}

// The first material decides which limits are in force.
RuleLimits CastingLimits::LimitsOfMaterial(const RuleIndex& rule, const Casting& casting) const {
    const CMfxRule& thickness = *rule.entry->rule;
    if (!thickness.m_constraintArray.IsEmpty() && thickness.m_constraintArray[0]->m_bActive)
        return LimitsByMaterial(rule, casting);
    RuleLimits result{.reason = kCommonLimits,
                      .text = "the common limits are in force: there are none by material"};
    if (!thickness.m_constraintArray.IsEmpty())
        result.text = "the common limits are in force: the first material, " + NameOf(thickness, 0) +
                      ", decides and is not active";
    TakeLimits(rule.valueOfKey, "", result);
    return result;
}

RuleLimits CastingLimits::LimitsByMaterial(const RuleIndex& rule, const Casting& casting) const {
    const CMfxRule& thickness = *rule.entry->rule;
    const std::string why =
        "limits by material are in force, since the first material, " + NameOf(thickness, 0) + ", is active";
    if (casting.material.empty()) return {.reason = kNoMaterialGiven, .text = "no material is given; " + why};
    const int constraint = FindConstraint(rule.constraintOfName, casting.material);
    if (constraint < 0)
        return {.reason = kUnknownMaterial,
                .text = "there is no material " + QuotedName(casting.material) +
                        NearestNames(thickness, casting.material)};
    const std::string& key = rule.constraintKeys[static_cast<std::size_t>(constraint)];
    RuleLimits result{.reason = kLimitsOfMaterial,
                      .text = why + "; these are those of " + NameOf(thickness, constraint),
                      .place = key};
    if (!thickness.m_constraintArray[constraint]->m_bActive) {
        result.reason = kConstraintNotActive;
        result.text = NameOf(thickness, constraint) + " is not active; " + why;
        return result;
    }
    TakeLimits(rule.valueOfKey, key + "/", result);
    return result;
}

RuleLimits CastingLimits::LimitsOfGroup(const RuleIndex& rule, const Casting& casting) const {
    const CMfxRule& thickness = *rule.entry->rule;
    const std::string& group = casting.group.empty() ? casting.material : casting.group;
    if (thickness.m_constraintArray.IsEmpty()) return {.reason = kNoGroups, .text = "the rule has no groups"};
    if (group.empty()) return {.reason = kNoGroupGiven, .text = "no material group is given"};
    const int constraint = FindConstraint(rule.constraintOfName, group);
    if (constraint < 0) return UnknownGroup(rule, casting, group);
    const auto index = static_cast<std::size_t>(constraint);
    const std::string owner = "the group " + NameOf(thickness, constraint);
    if (!thickness.m_constraintArray[constraint]->m_bActive)
        return {.reason = kConstraintNotActive,
                .text = owner + " is not active",
                .place = rule.constraintKeys[index]};
    return LimitsOfBand(rule, rule.bands[index], casting, owner);
}

// A document says nothing of a material's group.
RuleLimits CastingLimits::UnknownGroup(const RuleIndex& rule, const Casting& casting,
                                       const std::string& group) const {
    if (casting.group.empty() && IsMaterial(casting.material))
        return {.reason = kNoGroupGiven,
                .text = QuotedName(casting.material) + " is a material and no group; its group is not given"};
    return {.reason = kUnknownGroup,
            .text = "there is no group " + QuotedName(group) + NearestNames(*rule.entry->rule, group)};
}

RuleLimits CastingLimits::LimitsOfDraftTable(const RuleIndex& rule, const Casting& casting) const {
    if (!IsYes(rule.valueOfKey, std::to_string(kDraftAngleTableId) + "/active"))
        return {.reason = kSwitchedOff, .text = "the table is switched off"};
    return LimitsOfBand(rule, rule.bands.front(), casting, "the table");
}

RuleLimits CastingLimits::LargestVariation(const RuleIndex& rule) const {
    const std::string key = std::to_string(kVariationId);
    if (!IsYes(rule.valueOfKey, key + "/active"))
        return {.reason = kSwitchedOff, .text = "the value is switched off"};
    RuleLimits result{.reason = kValue, .text = "it holds for every casting"};
    Take(rule.valueOfKey, {key}, result.limits);
    if (result.limits.empty()) return {.reason = kNoValue, .text = "the rule has no value"};
    return result;
}

RuleLimits CastingLimits::LimitsOfBand(const RuleIndex& rule, const CastingBands& bands,
                                       const Casting& casting, const std::string& owner) const {
    if (bands.IsEmpty()) return {.reason = kNoBand, .text = owner + " has no bands"};
    if (bands.NeedSize() && !casting.size) return {.reason = kNoSizeGiven, .text = "no size is given"};
    if (bands.NeedWeight() && !casting.weight)
        return {.reason = kNoWeightGiven, .text = "no weight is given"};
    const RuleUnits units = UnitsOf(*rule.entry->rule);
    std::optional<double> weight = casting.weight;
    if (weight && units.massUnit != m_units.massUnit)
        weight = ConvertNumber(*weight, Quantity::Mass, m_units, units);
    const CastingBands::Band* band = bands.Find(casting.size, weight);
    if (!band)
        return {.reason = kNoBand,
                .text = "no band of " + owner + " holds a casting of this size" +
                        (bands.NeedWeight() ? " and weight" : "") + "; they are of " + bands.Describe(units)};
    RuleLimits result{.reason = kBand,
                      .text = "band " + std::to_string(band->row) + " of " + owner + ": " +
                              CastingBands::Describe(*band, units),
                      .place = band->key};
    Take(rule.valueOfKey, band->boundKeys, result.bounds);
    Take(rule.valueOfKey, band->limitKeys, result.limits);
    return result;
}
