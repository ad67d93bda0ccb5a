#include "OptionalValues.h"

#include "EditError.h"
#include "ValueKey.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <vector>

namespace {

struct SeverityWord {
    const char* word;
    int code;
};
constexpr SeverityWord kSeverities[] = {
    {"unknown", SeverityUnknown}, {"warning", SeverityWarning}, {"info", SeverityInfo}};

[[noreturn]] void Refuse(const std::string& key) {
    throw EditError(key + ": there is no such value");
}

int ToIndex(const std::string& text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number - 1;
}

// The parameter that a key is of; the parts become those behind it.
CMfxParamStorage& RequireParameter(CMfxRule& rule, std::vector<std::string>& parts, const std::string& key) {
    const MfxParamArray* params = &rule.m_paramArray;
    if (!parts.empty() && IsConstraintKey(parts[0])) {
        const std::vector<std::string> keys = ConstraintKeys(rule);
        const auto found = std::ranges::find(keys, parts[0]);
        if (found == keys.end()) Refuse(key);
        params = &rule.m_constraintArray[static_cast<int>(found - keys.begin())]->m_paramArray;
        parts.erase(parts.begin());
    }
    CMfxParamStorage* const storage = parts.empty() ? nullptr : FindParameter(*params, ToIndex(parts[0]) + 1);
    if (!storage) Refuse(key);
    parts.erase(parts.begin());
    return *storage;
}

void SetInList(CMfxParamStorage& storage, int index, const std::optional<double>& number,
               const std::string& key) {
    if (storage.GetType() != TypeDouble) Refuse(key);
    MfxArray<double>& values = storage.GetValues<double>();
    const bool isLast = index == values.GetCount() - (number ? 0 : 1);
    if (!isLast || index < 0) Refuse(key);
    if (number)
        values.Add(*number);
    else
        values.RemoveAt(index);
}

MfxSeverityMap* FindMap(CMfxParamStorage& storage, const std::string& kind) {
    if (kind == "percent-deviation") return &storage.m_percentDeviation;
    if (kind == "absolute-deviation") return &storage.m_absoluteDeviation;
    return kind == "absolute-value" ? &storage.m_absoluteValue : nullptr;
}

// The parts read: kind, number, severity, and "second".
void SetDeviation(CMfxParamStorage& storage, const std::vector<std::string>& parts,
                  const std::optional<double>& number, const std::string& key) {
    MfxSeverityMap* const map = FindMap(storage, parts[0]);
    const auto severity = std::ranges::find(kSeverities, parts[2], &SeverityWord::word);
    const int index = ToIndex(parts[1]);
    if (!map || severity == std::end(kSeverities) || index < 0) Refuse(key);
    const bool isNew = number && parts.size() == 3;
    if (!isNew && index >= static_cast<int>(map->size())) Refuse(key);
    if (isNew)
        map->emplace(severity->code, MfxDeviation{*number, 0.0});
    else if (parts.size() == 3)
        map->erase(std::next(map->begin(), index));
    else
        std::next(map->begin(), index)->second.second = number.value_or(0.0);
}

void SetOne(CMfxRule& rule, const std::string& key, const std::optional<double>& number) {
    std::vector<std::string> parts = KeyParts(key);
    CMfxParamStorage& storage = RequireParameter(rule, parts, key);
    if (parts.size() <= 1)
        SetInList(storage, parts.empty() ? 0 : ToIndex(parts[0]), number, key);
    else if (parts.size() == 3 || parts.size() == 4)
        SetDeviation(storage, parts, number, key);
    else
        Refuse(key);
}

}  // namespace

Quantity QuantityOfOptionalValue(const std::string& key) {
    const std::vector<std::string> parts = KeyParts(key);
    const std::size_t parameter = !parts.empty() && IsConstraintKey(parts[0]) ? 1 : 0;
    if (parts.size() <= parameter || key.find("percent-deviation") != std::string::npos)
        return Quantity::None;
    return QuantityOfParameter(ToIndex(parts[parameter]) + 1);
}

void SetOptionalValues(CMfxRule& rule, const std::map<std::string, std::optional<double>>& values) {
    std::vector<std::pair<std::string, std::optional<double>>> sorted(values.begin(), values.end());
    std::ranges::stable_sort(sorted, {}, [](const auto& value) { return value.first.size(); });
    for (auto value = sorted.rbegin(); value != sorted.rend(); ++value)
        if (!value->second) SetOne(rule, value->first, std::nullopt);
    for (const auto& [key, number] : sorted)
        if (number) SetOne(rule, key, number);
}
