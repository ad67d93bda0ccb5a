#include "RuleSetters.h"

#include "DraftTableCheck.h"
#include "MassUnits.h"
#include "NumberText.h"
#include "Text.h"
#include "ValueKey.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <map>
#include <set>

namespace {

// 0 for a text that is no whole number above zero.
int ToNumber(const std::string& text) {
    int number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    return parsed.ptr == text.data() + text.size() ? std::max(number, 0) : 0;
}

int FindConstraint(const CMfxRule& rule, const std::string& key) {
    const std::vector<std::string> keys = ConstraintKeys(rule);
    const auto found = std::ranges::find(keys, key);
    return found != keys.end() ? static_cast<int>(found - keys.begin()) : -1;
}

MfxArray<MfxTableRow>* FindTable(const CMfxRule& rule, long paramId) {
    CMfxParamStorage* const storage = FindParameter(rule.m_paramArray, paramId);
    return storage && storage->GetType() == TypeTableRow ? &storage->GetValues<MfxTableRow>() : nullptr;
}

// The lists of a group's bands; fewer where the rule has none.
std::vector<MfxArray<double>*> BandLists(const CMfxRule& rule, int constraint) {
    std::vector<MfxArray<double>*> lists;
    for (const long paramId : kBandParameterIds)
        if (CMfxParamStorage* storage = rule.m_constraintArray[constraint]->FindParameterInArray(paramId))
            lists.push_back(&storage->GetValues<double>());
    return lists;
}

template <class Value>
void InsertAt(MfxArray<Value>& values, int index, const Value& value) {
    std::vector<Value> all(values.begin(), values.end());
    all.insert(all.begin() + std::min(index, values.GetCount()), value);
    values.RemoveAll();
    for (const Value& one : all) values.Add(one);
}

MfxTableRow EmptyRow() {
    return {std::vector<CString>(DraftCell::Count)};
}

// The element of a list of bands that may be shorter than the others.
double& ElementAt(MfxArray<double>& values, int index) {
    while (values.GetCount() <= index) values.Add(kValueNotGiven);
    return values[index];
}

CString& CellAt(MfxTableRow& row, std::size_t cell) {
    if (row.cells.size() <= cell) row.cells.resize(cell + 1);
    return row.cells[cell];
}

CMfxParamStorage& StorageOf(CMfxRule& rule, const RecordLocation& location) {
    return location.constraint < 0
               ? *FindParameter(rule.m_paramArray, location.paramId)
               : *rule.m_constraintArray[location.constraint]->FindParameterInArray(location.paramId);
}

CString CellOf(const ValueContent& content) {
    return std::holds_alternative<std::monostate>(content) ? CString() : FormatDouble(StoredNumber(content));
}

void ConvertWeights(CMfxRule& rule, const RuleUnits& from, const RuleUnits& to) {
    for (const CMFXConstraint* group : rule.m_constraintArray)
        for (const long paramId : {kWeightMinId, kWeightMaxId})
            if (CMfxParamStorage* storage = group->FindParameterInArray(paramId))
                for (double& weight : storage->GetValues<double>())
                    if (weight > 0.0) weight = ConvertNumber(weight, Quantity::Mass, from, to);
}

void SetText(CMfxRule& rule, CMfxParamStorage& storage, int row, const CString& text) {
    const RuleUnits before = UnitsOf(rule);
    storage.GetValues<CString>()[row - 1] = text;
    if (storage.m_nParamId == kMassUnitId) ConvertWeights(rule, before, UnitsOf(rule));
}

// The place's cell numbers the maps, each with first and second numbers.
void SetDeviation(CMfxParamStorage& storage, const RuleValue& place, double number) {
    MfxSeverityMap* const maps[] = {&storage.m_percentDeviation, &storage.m_absoluteDeviation,
                                    &storage.m_absoluteValue};
    MfxDeviation& deviation = std::next(maps[place.cell / 2]->begin(), place.row - 1)->second;
    (place.cell % 2 ? deviation.second : deviation.first) = number;
}

void SetOfParameter(CMfxRule& rule, const RuleValue& place, const ValueContent& content) {
    CMfxParamStorage& storage = StorageOf(rule, place.location);
    const int index = place.location.row - 1;
    switch (place.kind) {
        case ValueKind::ParameterActive:
            storage.m_bStatus = content == ValueContent("yes");
            break;
        case ValueKind::Number:
            ElementAt(storage.GetValues<double>(), index) = StoredNumber(content);
            break;
        case ValueKind::Cell:
            CellAt(storage.GetValues<MfxTableRow>()[index], place.cell) = CellOf(content);
            break;
        case ValueKind::Deviation:
            SetDeviation(storage, place, StoredNumber(content));
            break;
        default:
            SetText(rule, storage, place.location.row, FromUtf8(std::get<std::string>(content)));
            break;
    }
}

}  // namespace

std::optional<WholePlace> FindWholePlace(const CMfxRule& rule, const std::string& key) {
    const std::vector<std::string> parts = KeyParts(key);
    if (parts.empty()) return std::nullopt;
    const int constraint = FindConstraint(rule, parts[0]);
    // "Steel#2" names one that is there, and none to be added.
    const bool isNumbered = parts[0].find('#') != std::string::npos;
    if (parts.size() == 1 && IsConstraintKey(parts[0]) && (constraint >= 0 || !isNumbered))
        return WholePlace{.name = NameOfKey(parts[0]), .constraint = constraint};
    const int row = ToNumber(parts.back());
    if (parts.size() == 2 && row)
        if (const auto* table = FindTable(rule, ToNumber(parts[0])); table && row <= table->GetCount() + 1)
            return WholePlace{.paramId = ToNumber(parts[0]), .row = row};
    if (parts.size() == 3 && parts[1] == "band" && row && constraint >= 0 &&
        row <= CountBands(*rule.m_constraintArray[constraint]) + 1)
        return WholePlace{.constraint = constraint, .row = row};
    return std::nullopt;
}

bool HasConstraints(const CMfxRule& rule) {
    return rule.GetRuleId() == kUniformThicknessRuleId || rule.GetRuleId() == kSizeAndWeightRuleId;
}

void ChangeWhole(CMfxRule& rule, const WholePlace& place, bool isPresent) {
    const int index = place.row - 1;
    if (place.row == 0) {
        rule.DeleteConstraintObject(rule.m_constraintArray[place.constraint]);
    } else if (MfxArray<MfxTableRow>* table = FindTable(rule, place.paramId)) {
        if (isPresent)
            InsertAt(*table, index, EmptyRow());
        else if (index < table->GetCount())
            table->RemoveAt(index);
    } else {
        const int count = CountBands(*rule.m_constraintArray[place.constraint]);
        for (MfxArray<double>* list : BandLists(rule, place.constraint)) {
            if (count > 0) ElementAt(*list, count - 1);
            if (isPresent)
                InsertAt(*list, index, kValueNotGiven);
            else if (index < count)
                list->RemoveAt(index);
        }
    }
}

bool AppendRowFor(CMfxRule& rule, const std::string& key) {
    const std::vector<std::string> parts = KeyParts(key);
    if (parts.size() != 3) return false;
    if (MfxArray<MfxTableRow>* table = FindTable(rule, ToNumber(parts[0]))) {
        if (ToNumber(parts[1]) != table->GetCount() + 1) return false;
        table->Add(EmptyRow());
        return true;
    }
    const int constraint = FindConstraint(rule, parts[0]);
    if (constraint < 0 || ToNumber(parts[2]) != CountBands(*rule.m_constraintArray[constraint]) + 1)
        return false;
    ChangeWhole(rule, {.constraint = constraint, .row = ToNumber(parts[2])}, true);
    return true;
}

void SetContent(CMfxRule& rule, const RuleValue& place, const ValueContent& content) {
    switch (place.kind) {
        case ValueKind::Status:
            rule.m_nStatus = std::stoi(std::get<std::string>(content));
            break;
        case ValueKind::Severity:
            rule.m_nSeverity = std::stoi(std::get<std::string>(content));
            break;
        case ValueKind::ByMaterial:
            PutFirst(rule, content == ValueContent("yes"));
            break;
        case ValueKind::ConstraintActive:
            rule.m_constraintArray[place.location.constraint]->m_bActive = content == ValueContent("yes");
            break;
        default:
            SetOfParameter(rule, place, content);
            break;
    }
}

bool PutFirst(CMfxRule& rule, bool isActive) {
    auto& constraints = rule.m_constraintArray;
    const auto found = std::ranges::find(constraints, isActive, &CMFXConstraint::m_bActive);
    if (found == constraints.end()) return constraints.IsEmpty() && !isActive;
    std::rotate(constraints.begin(), found, std::next(found));
    return true;
}

void SelectConstraints(CMfxRule& rule, const std::vector<CString>& names) {
    std::map<CString, std::size_t> places;
    for (const CString& name : names) places.emplace(name, places.size());
    std::set<CString> kept;
    std::vector<CMFXConstraint*> dropped;
    for (CMFXConstraint* constraint : rule.m_constraintArray)
        if (!places.contains(constraint->m_strName) || !kept.insert(constraint->m_strName).second)
            dropped.push_back(constraint);
    for (CMFXConstraint* constraint : dropped) rule.DeleteConstraintObject(constraint);
    std::ranges::sort(rule.m_constraintArray, {},
                      [&](const CMFXConstraint* constraint) { return places.at(constraint->m_strName); });
}

// A limit is on or off with its material.
void FillMaterial(CMFXConstraint& material, const MaterialRow& row) {
    for (const auto& [paramId, limit] :
         {std::pair{kThicknessMinId, row.minimum}, std::pair{kThicknessMaxId, row.maximum}}) {
        CMfxParamStorage& storage = *material.FindParameterInArray(paramId);
        storage.GetValues<double>().SetFirst(limit);
        if (row.isActive != material.m_bActive) storage.m_bStatus = row.isActive;
    }
    material.m_bActive = row.isActive;
}

void FillGroup(CMFXConstraint& group, const GroupRows& rows) {
    for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
        MfxArray<double>& values = group.FindParameterInArray(kBandParameterIds[cell])->GetValues<double>();
        values.RemoveAll();
        for (const CastSizeAndWeightBand& band : rows.bands) values.Add(band.*kBandValues[cell]);
    }
    group.m_bActive = rows.isActive;
}

void CloseLastBand(CMfxRule& rule) {
    MfxArray<MfxTableRow>* const table = FindTable(rule, kDraftAngleTableId);
    if (!table) return;
    for (int i = table->GetCount(); i-- > 0;)
        if (std::ranges::all_of((*table)[i].cells, &CString::IsEmpty)) table->RemoveAt(i);
    if (table->IsEmpty()) return;
    CString& upperBound = (*table)[table->GetCount() - 1].cells[DraftCell::UpperBound];
    if (upperBound.IsEmpty()) upperBound = FormatDouble(NoUpperLimitValue);
}
