#include "RuleValues.h"

#include "DraftTableCheck.h"
#include "MFXUnitConvertor.h"
#include "NumberText.h"
#include "RuleParameters.h"
#include "Text.h"
#include "UnitNames.h"
#include "ValueText.h"
#include "XmlNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace {

constexpr double kHalfOfSixDecimals = 0.5e-6;

class ValueLister {
  public:
    explicit ValueLister(const CMfxRule& rule) : m_rule(rule) {}

    std::vector<RuleValue> List() {
        Add("status", 0, "", std::to_string(m_rule.m_nStatus));
        Add("severity", 0, "", std::to_string(m_rule.m_nSeverity));
        AddParameters(m_rule.m_paramArray);
        for (const CMFXConstraint* pConstraint : m_rule.m_constraintArray) {
            m_constraint = PlaceOf(*pConstraint);
            ++m_place.nConstraint;
            Add("active", 0, "", pConstraint->m_bActive ? "yes" : "no");
            AddParameters(pConstraint->m_paramArray);
        }
        return std::move(m_values);
    }

  private:
    // The constraint's name; numbered where an earlier one has it too, so that every value has its own place.
    std::string PlaceOf(const CMFXConstraint& constraint) {
        const std::string name =
            constraint.m_strName.IsEmpty() ? "(without a name)" : ToUtf8(constraint.m_strName);
        const int nCount = ++m_constraintCounts[name];
        return nCount > 1 ? name + " (" + std::to_string(nCount) + ")" : name;
    }

    void Add(const std::string& label, int nRow, const std::string& unit, NumberOrWord value,
             double storedWithin = 0.0) {
        const std::string own = std::holds_alternative<double>(value) ? unit : "";
        m_values.push_back({m_constraint, label, nRow, own, std::move(value), storedWithin, m_place});
    }

    void AddParameters(const MfxParamArray& params) {
        for (const MfxParamRecord& record : params) {
            const CMfxParamStorage& storage = *record.m_pStorage;
            const std::string label = ToUtf8(storage.m_strName);
            m_place.nParamId = storage.m_nParamId;
            Add(label + ", active", 0, "", storage.m_bStatus ? "yes" : "no");
            if (storage.GetType() == TypeDouble)
                AddNumbers(storage, label);
            else if (storage.GetType() == TypeTableRow)
                AddBands(storage.GetValues<MfxTableRow>());
            else
                std::visit([&](const auto& values) { AddTexts(values, label); }, storage.m_values);
            AddDeviations(storage.m_percentDeviation, label + ", percent deviation");
            AddDeviations(storage.m_absoluteDeviation, label + ", absolute deviation");
            AddDeviations(storage.m_absoluteValue, label + ", absolute value");
        }
        m_place.nParamId = 0;
    }

    // Of the result criteria; a second number of 0 or less is not given.
    void AddDeviations(const MfxSeverityMap& map, const std::string& label) {
        int nRow = 0;
        for (const auto& [nSeverity, deviation] : map) {
            const std::string severity = nSeverity == SeverityWarning ? "warning"
                                         : nSeverity == SeverityInfo  ? "info"
                                                                      : "unknown";
            const std::string entry = label + ", " + severity;
            Add(entry, ++nRow, "", deviation.first, kHalfOfSixDecimals);
            if (deviation.second > 0.0)
                Add(entry + ", second", nRow, "", deviation.second, kHalfOfSixDecimals);
        }
    }

    void AddNumbers(const CMfxParamStorage& storage, const std::string& label) {
        const MfxArray<double>& values = storage.GetValues<double>();
        const std::string unit = UnitOfParameter(storage, m_rule);
        for (int i = 0; i < values.GetCount(); ++i)
            Add(label, values.GetCount() > 1 || !m_constraint.empty() ? i + 1 : 0, unit,
                ContentOfNumber(values[i], IsBandParameter(storage.m_nParamId)));
    }

    void AddBands(const MfxArray<MfxTableRow>& rows) {
        const auto columns = BandColumns(m_rule);
        for (int i = 0; i < rows.GetCount(); ++i) {
            m_place.nRow = i + 1;
            for (std::size_t nCell = 0; nCell < std::min(rows[i].cells.size(), columns.size()); ++nCell)
                Add(columns[nCell].name, i + 1, columns[nCell].unit, ContentOfCell(rows[i], nCell),
                    kHalfOfSixDecimals);
        }
        m_place.nRow = 0;
    }

    template <class Values>
    void AddTexts(const Values& values, const std::string& label) {
        for (int i = 0; i < values.GetCount(); ++i)
            Add(label, values.GetCount() > 1 ? i + 1 : 0, "", ToUtf8(ToText(values[i])));
    }

    const CMfxRule& m_rule;
    std::string m_constraint;  // the one being listed
    RecordPlace m_place;       // of the value being listed
    std::map<std::string, int> m_constraintCounts;
    std::vector<RuleValue> m_values;
};

}  // namespace

NumberOrWord ContentOfNumber(double value, bool bOfBand) {
    if (!std::isfinite(value)) return FormatNumber(value);
    if (bOfBand && value < -kTolerance) return std::monostate();
    if (bOfBand && IsNoUpperLimit(value)) return "no limit";
    return value;
}

NumberOrWord ContentOfCell(const MfxTableRow& row, std::size_t nCell) {
    const CString& strCell = row.cells[nCell];
    if (strCell.IsEmpty()) return std::monostate();
    if (!IsNumericText(strCell) || !IsReal(strCell)) return ToUtf8(strCell);
    return ContentOfNumber(ParseDouble(strCell), nCell < DraftCell::FirstAngle);
}

std::string FormatNumberOrWord(const NumberOrWord& content, int nDigits) {
    if (const double* pNumber = std::get_if<double>(&content)) return FormatNumber(*pNumber, nDigits);
    const std::string* pWord = std::get_if<std::string>(&content);
    return pWord ? *pWord : "-";
}

std::string FormatNumber(double value, int nDigits) {
    const double magnitude = std::fabs(value);
    const bool bFixed = magnitude >= 1e-9 && magnitude < 1e15;
    const int nDecimals =
        bFixed ? std::max(nDigits - 1 - static_cast<int>(std::floor(std::log10(magnitude))), 0) : 0;
    char buffer[48];
    char* pEnd =
        bFixed
            ? std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::fixed, nDecimals)
                  .ptr
            : std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general, nDigits)
                  .ptr;
    std::string text(buffer, pEnd);
    if (nDecimals > 0) text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string MassUnitLabel(const CMfxRule& rule) {
    const CMfxParamStorage* pUnit = FindParameter(rule.m_paramArray, kMassUnitId);
    const bool bHasLabel = pUnit && pUnit->GetType() == TypeText && !pUnit->GetValues<CString>().IsEmpty();
    return MassUnitSymbol(bHasLabel ? ToUtf8(pUnit->GetValues<CString>()[0]) : "");
}

std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule) {
    switch (QuantityOfParameter(storage.m_nParamId)) {
        case ParameterQuantity::Length:
            return LengthUnitSymbol(rule.m_nLengthUnit);
        case ParameterQuantity::Mass:
            return MassUnitLabel(rule);
        case ParameterQuantity::None:
            break;
    }
    return {};
}

std::array<BandColumn, 5> BandColumns(const CMfxRule& rule) {
    const std::string length = LengthUnitSymbol(rule.m_nLengthUnit);
    const std::string angle = AngleUnitSymbol(rule.m_nAngleUnit);
    return {{{"from", length}, {"to", length}, {"angle 1", angle}, {"angle 2", angle}, {"angle 3", angle}}};
}

std::vector<RuleValue> ListRuleValues(const CMfxRule& rule) {
    return ValueLister(rule).List();
}

RuleValue InUnits(RuleValue value, const UnitPair& from, const UnitPair& to) {
    double* pNumber = std::get_if<double>(&value.value);
    if (!pNumber) return value;
    const CMFXUnitConvertor convertor;
    if (const int nMassUnit = FindMassUnit(value.unit)) {
        *pNumber = convertor.ConversionFromOneUnitToAnotherForMass(*pNumber, nMassUnit, MassKilogram);
        value.unit = "kg";
        return value;
    }
    const bool bLength = value.unit == LengthUnitSymbol(from.m_nLengthUnit);
    if (!bLength && value.unit != AngleUnitSymbol(from.m_nAngleUnit)) return value;
    for (double* p : {pNumber, &value.storedWithin})
        *p = bLength ? convertor.ConversionFromOneUnitToAnother(*p, QuantityLength, from.m_nLengthUnit,
                                                                to.m_nLengthUnit)
                     : convertor.ConversionFromOneUnitToAnother(*p, QuantityAngle, from.m_nAngleUnit,
                                                                to.m_nAngleUnit);
    value.unit = bLength ? LengthUnitSymbol(to.m_nLengthUnit) : AngleUnitSymbol(to.m_nAngleUnit);
    return value;
}

PlaceIndex::PlaceIndex(const std::vector<RuleValue>& values) {
    for (const RuleValue& value : values) m_values.emplace(PlaceOf(value), &value);
}

const RuleValue* PlaceIndex::Find(const RuleValue& place) const {
    const auto found = m_values.find(PlaceOf(place));
    return found != m_values.end() ? found->second : nullptr;
}

std::string FormatRuleValue(const RuleValue& value, int nDigits) {
    return FormatNumberOrWord(value.value, nDigits) + (value.unit.empty() ? "" : " " + value.unit);
}

bool IsSameValue(const RuleValue& first, const RuleValue& second) {
    if (LossOf(first, second) == 0.0) return true;
    const double *p = std::get_if<double>(&first.value), *q = std::get_if<double>(&second.value);
    return p && q && std::fabs(*p - *q) <= 1.01 * (first.storedWithin + second.storedWithin);
}

double LossOf(const RuleValue& exact, const RuleValue& stored) {
    constexpr double kNineDigits = 1e-9;
    const double *p = std::get_if<double>(&exact.value), *q = std::get_if<double>(&stored.value);
    if (!p || !q) return exact.value == stored.value ? 0.0 : 1.0;
    const double difference = std::fabs(*p - *q), size = std::max(std::fabs(*p), std::fabs(*q));
    return difference <= kNineDigits * size ? 0.0 : std::min(difference / size, 1.0);
}
