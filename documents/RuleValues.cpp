#include "RuleValues.h"

#include "CastSizeAndWeightBand.h"
#include "DraftTableCheck.h"
#include "Text.h"
#include "ValueKey.h"
#include "ValueText.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double kHalfOfSixthDecimal = 0.5e-6;

constexpr const char* kBandColumnNames[] = {"from", "to", "angle 1", "angle 2", "angle 3"};
constexpr const char* kBandColumnKeys[] = {"from", "to", "angle1", "angle2", "angle3"};
static_assert(std::size(kBandColumnNames) == DraftCell::Count);
static_assert(std::size(kBandColumnKeys) == DraftCell::Count);

class ValueLister {
  public:
    explicit ValueLister(const CMfxRule& rule) : m_rule(rule), m_units(UnitsOf(rule)) {}

    std::vector<RuleValue> List() {
        AddWord("status", "status", std::to_string(m_rule.m_nStatus), ValueKind::Status);
        AddWord("severity", "severity", std::to_string(m_rule.m_nSeverity), ValueKind::Severity);
        // The first material decides, so the order of materials counts.
        if (m_rule.GetRuleId() == kUniformThicknessRuleId)
            AddWord(kByMaterialKey, "limits by material in force",
                    IsFirstConstraint(m_rule, true) ? "yes" : "no", ValueKind::ByMaterial);
        AddParameters(m_rule.m_paramArray);
        const std::vector<std::string> keys = ConstraintKeys(m_rule);
        for (const CMFXConstraint* constraint : m_rule.m_constraintArray) {
            m_constraint = NumberedName(*constraint);
            m_constraintKey = keys[static_cast<std::size_t>(++m_location.constraint)];
            AddWord("active", "active", constraint->m_bActive ? "yes" : "no", ValueKind::ConstraintActive);
            m_bandCount = CountBands(*constraint);
            AddParameters(constraint->m_paramArray);
        }
        return std::move(m_values);
    }

  private:
    // The constraint's name, numbered where an earlier one has it too.
    std::string NumberedName(const CMFXConstraint& constraint) {
        const std::string name =
            constraint.m_strName.IsEmpty() ? "(without a name)" : ToUtf8(constraint.m_strName);
        const int count = ++m_constraintCounts[name];
        return count > 1 ? name + " (" + std::to_string(count) + ")" : name;
    }

    // The value's key is what it is of, and the rest.
    RuleValue& Add(const std::string& key, const std::string& label, ValueContent content, ValueKind kind) {
        std::string whole = m_constraintKey;
        if (m_location.paramId) whole += (whole.empty() ? "" : "/") + std::to_string(m_location.paramId);
        if (!key.empty()) whole += (whole.empty() ? "" : "/") + key;
        return m_values.emplace_back(RuleValue{.key = std::move(whole),
                                               .constraint = m_constraint,
                                               .label = label,
                                               .content = std::move(content),
                                               .location = m_location,
                                               .kind = kind});
    }

    void AddWord(const std::string& key, const std::string& label, const std::string& word, ValueKind kind) {
        Add(key, label, word, kind);
    }

    RuleValue& AddNumber(const std::string& key, const std::string& label, int row, Quantity quantity,
                         ValueContent content, ValueKind kind) {
        RuleValue& value = Add(key, label, std::move(content), kind);
        value.row = row;
        value.quantity = quantity;
        value.roundingError = kind == ValueKind::Number ? 0.0 : kHalfOfSixthDecimal;
        if (std::holds_alternative<double>(value.content)) value.unit = UnitSymbol(quantity, m_units);
        return value;
    }

    void AddParameters(const MfxParamArray& params) {
        for (const MfxParamRecord& record : params) {
            m_location.paramId = record.m_pStorage->m_nParamId;
            AddParameter(*record.m_pStorage, ToUtf8(record.m_pStorage->m_strName));
        }
        m_location.paramId = 0;
    }

    void AddParameter(const CMfxParamStorage& storage, const std::string& label) {
        AddWord("active", label + ", active", storage.m_bStatus ? "yes" : "no", ValueKind::ParameterActive);
        if (storage.GetType() == TypeDouble)
            AddNumbers(storage, label);
        else if (storage.GetType() == TypeTableRow)
            AddBands(storage.GetValues<MfxTableRow>());
        else
            std::visit([&](const auto& values) { AddTexts(values, label); }, storage.m_values);
        const Quantity quantity = QuantityOfParameter(storage.m_nParamId);
        AddDeviations(storage.m_percentDeviation, label, "percent deviation", Quantity::None);
        AddDeviations(storage.m_absoluteDeviation, label, "absolute deviation", quantity);
        AddDeviations(storage.m_absoluteValue, label, "absolute value", quantity);
    }

    // Bands have rows. Of other numbers there is one, but for older records.
    void AddNumbers(const CMfxParamStorage& storage, const std::string& label) {
        const MfxArray<double>& values = storage.GetValues<double>();
        const bool isOfBand = IsBandParameter(storage.m_nParamId);
        const int count = isOfBand ? std::max(values.GetCount(), m_bandCount) : values.GetCount();
        for (int i = 0; i < count; ++i) {
            const int row = isOfBand || i > 0 ? i + 1 : 0;
            m_location.row = i + 1;
            RuleValue& value =
                AddNumber(row ? std::to_string(row) : "", label, row, QuantityOfParameter(storage.m_nParamId),
                          ContentOfNumber(i < values.GetCount() ? values[i] : kValueNotGiven, isOfBand),
                          ValueKind::Number);
            if (isOfBand) PutIntoTable(value, m_constraintKey + "/band", std::to_string(storage.m_nParamId));
        }
        m_location.row = 0;
    }

    void AddBands(const MfxArray<MfxTableRow>& rows) {
        for (int i = 0; i < rows.GetCount(); ++i) {
            m_location.row = i + 1;
            for (std::size_t cell = 0; cell < DraftCell::Count; ++cell) {
                RuleValue& value = AddNumber(std::to_string(i + 1) + "/" + kBandColumnKeys[cell],
                                             kBandColumnNames[cell], i + 1, QuantityOfDraftCell(cell),
                                             ContentOfCell(rows[i], cell), ValueKind::Cell);
                value.cell = cell;
                PutIntoTable(value, std::to_string(m_location.paramId), kBandColumnKeys[cell]);
            }
        }
        m_location.row = 0;
    }

    template <class Values>
    void AddTexts(const Values& values, const std::string& label) {
        for (int i = 0; i < values.GetCount(); ++i) {
            m_location.row = i + 1;
            const int row = i > 0 ? i + 1 : 0;
            RuleValue& value =
                Add(row ? std::to_string(row) : "", label, ToUtf8(ToText(values[i])), ValueKind::Text);
            value.row = row;
        }
        m_location.row = 0;
    }

    // "percent deviation" becomes "percent-deviation".
    static std::string KeyOfKind(std::string kind) {
        std::ranges::replace(kind, ' ', '-');
        return kind;
    }

    // Of the result criteria; a second number of 0 or less is not given.
    void AddDeviations(const MfxSeverityMap& map, const std::string& label, const std::string& kind,
                       Quantity quantity) {
        const std::size_t cell = kind.starts_with("percent") ? 0 : kind == "absolute deviation" ? 2 : 4;
        int row = 0;
        for (const auto& [severityCode, deviation] : map) {
            const std::string severity = severityCode == SeverityWarning ? "warning"
                                         : severityCode == SeverityInfo  ? "info"
                                                                         : "unknown";
            const std::string entry = label + ", " + kind + ", " + severity;
            const std::string key = KeyOfKind(kind) + "/" + std::to_string(++row) + "/" + severity;
            AddNumber(key, entry, row, quantity, ContentOfNumber(deviation.first, false),
                      ValueKind::Deviation)
                .cell = cell;
            if (deviation.second > 0.0)
                AddNumber(key + "/second", entry + ", second", row, quantity,
                          ContentOfNumber(deviation.second, false), ValueKind::Deviation)
                    .cell = cell + 1;
        }
    }

    static void PutIntoTable(RuleValue& value, const std::string& table, const std::string& column) {
        value.table = table;
        value.column = column;
    }

    const CMfxRule& m_rule;
    const RuleUnits m_units;
    std::string m_constraint;  // the one being listed
    std::string m_constraintKey;
    int m_bandCount = 0;        // of the constraint being listed
    RecordLocation m_location;  // of the value being listed
    std::map<std::string, int> m_constraintCounts;
    std::vector<RuleValue> m_values;
};

// These give the value of a table its place; false where there is no such table or column.
bool LocateBandCell(const CMfxRule& rule, RuleValue& cell) {
    const std::vector<std::string> keys = ConstraintKeys(rule);
    const auto constraint = std::ranges::find(keys, ConstraintOfTable(cell.table));
    const auto paramId =
        std::ranges::find(kBandParameterIds, cell.column, [](long id) { return std::to_string(id); });
    if (constraint == keys.end() || paramId == std::end(kBandParameterIds)) return false;
    cell.location.constraint = static_cast<int>(constraint - keys.begin());
    cell.location.paramId = *paramId;
    cell.quantity = QuantityOfParameter(*paramId);
    cell.kind = ValueKind::Number;
    const CMFXConstraint& group = *rule.m_constraintArray[cell.location.constraint];
    return group.FindParameterInArray(*paramId) != nullptr;
}

bool LocateDraftCell(RuleValue& cell) {
    const auto column = std::ranges::find(kBandColumnKeys, cell.column);
    if (cell.table != std::to_string(kDraftAngleTableId) || column == std::end(kBandColumnKeys)) return false;
    cell.location.paramId = kDraftAngleTableId;
    cell.cell = static_cast<std::size_t>(column - std::begin(kBandColumnKeys));
    cell.quantity = QuantityOfDraftCell(cell.cell);
    cell.kind = ValueKind::Cell;
    return true;
}

}  // namespace

std::optional<RuleValue> FindCell(const CMfxRule& rule, const std::string& table, int row,
                                  const std::string& column) {
    RuleValue cell{.key = CellKey(table, row, column), .row = row, .table = table, .column = column};
    cell.location.row = row;
    const bool isThere =
        ConstraintOfTable(table).empty() ? LocateDraftCell(cell) : LocateBandCell(rule, cell);
    return isThere ? std::optional(cell) : std::nullopt;
}

std::optional<double> FirstNumber(const CMfxParamStorage* parameter) {
    if (!parameter || parameter->GetValues<double>().IsEmpty()) return std::nullopt;
    return parameter->GetValues<double>()[0];
}

int CountBands(const CMFXConstraint& group) {
    int count = 0;
    for (const long paramId : kBandParameterIds)
        if (const CMfxParamStorage* storage = group.FindParameterInArray(paramId))
            count = std::max(count, storage->GetValues<double>().GetCount());
    return count;
}

std::vector<std::string> ConstraintKeys(const CMfxRule& rule) {
    KeyCounter counter;
    std::vector<std::string> keys;
    for (const CMFXConstraint* constraint : rule.m_constraintArray)
        keys.push_back(counter.Next(KeyOfName(ToUtf8(constraint->m_strName))));
    return keys;
}

std::vector<RuleValue> ListRuleValues(const CMfxRule& rule) {
    return ValueLister(rule).List();
}

bool IsFirstConstraint(const CMfxRule& rule, bool isActive) {
    return !rule.m_constraintArray.IsEmpty() && rule.m_constraintArray[0]->m_bActive == isActive;
}

RuleValue ConvertValue(RuleValue value, const RuleUnits& from, const RuleUnits& to) {
    double* number = std::get_if<double>(&value.content);
    if (!number) return value;
    *number = ConvertNumber(*number, value.quantity, from, to);
    value.roundingError = ConvertNumber(value.roundingError, value.quantity, from, to);
    value.unit = UnitSymbol(value.quantity, to);
    return value;
}

RuleValueIndex::RuleValueIndex(const std::vector<RuleValue>& values) {
    for (const RuleValue& value : values) m_values.emplace(value.key, &value);
}

const RuleValue* RuleValueIndex::FindCounterpart(const RuleValue& value) const {
    const auto found = m_values.find(value.key);
    return found != m_values.end() ? found->second : nullptr;
}

std::string FormatRuleValue(const RuleValue& value, int digits) {
    return FormatContent(value.content, digits) + (value.unit.empty() ? "" : " " + value.unit);
}

bool IsSameValue(const RuleValue& first, const RuleValue& second) {
    if (RelativeDifference(first.content, second.content) == 0.0) return true;
    const double *p = std::get_if<double>(&first.content), *q = std::get_if<double>(&second.content);
    return p && q && std::fabs(*p - *q) <= 1.01 * (first.roundingError + second.roundingError);
}

double RelativeDifference(const ValueContent& first, const ValueContent& second) {
    constexpr double kNineDigits = 1e-9;
    const double *p = std::get_if<double>(&first), *q = std::get_if<double>(&second);
    if (!p || !q) return first == second ? 0.0 : 1.0;
    const double difference = std::fabs(*p - *q), size = std::max(std::fabs(*p), std::fabs(*q));
    return difference <= kNineDigits * size ? 0.0 : std::min(difference / size, 1.0);
}

std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule) {
    return UnitSymbol(QuantityOfParameter(storage.m_nParamId), UnitsOf(rule));
}

std::array<BandColumn, 5> BandColumns(const CMfxRule& rule) {
    std::array<BandColumn, 5> columns;
    for (std::size_t cell = 0; cell < columns.size(); ++cell)
        columns[cell] = {kBandColumnKeys[cell], kBandColumnNames[cell],
                         UnitSymbol(QuantityOfDraftCell(cell), UnitsOf(rule))};
    return columns;
}
