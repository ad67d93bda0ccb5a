#include "RuleValues.h"

#include "MFXUnitConvertor.h"
#include "NumberText.h"
#include "RuleParameters.h"
#include "RuleTable.h"
#include "Text.h"
#include "UnitNames.h"
#include "ValueText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kHalfOfSixDecimals = 0.5e-6;

// Bounds without a limit and values not given are words, so that no unit applies to them.
std::variant<double, std::string> NumberOrWord(double value, bool bHasUnit) {
    if (bHasUnit && value < -kTolerance) return "-";
    if (IsNoUpperLimit(value)) return "no limit";
    return value;
}

class ValueLister {
  public:
    explicit ValueLister(const CMfxRule& rule) : m_rule(rule) {}

    std::vector<RuleValue> List() {
        Add("status", 0, "", std::to_string(m_rule.m_nStatus));
        Add("severity", 0, "", std::to_string(m_rule.m_nSeverity));
        AddParameters(m_rule.m_paramArray);
        for (const CMFXConstraint* pConstraint : m_rule.m_constraintArray) {
            m_constraint = ToUtf8(pConstraint->m_strName);
            ++m_place.nConstraint;
            Add("active", 0, "", pConstraint->m_bActive ? "yes" : "no");
            AddParameters(pConstraint->m_paramArray);
        }
        return std::move(m_values);
    }

  private:
    void Add(const std::string& label, int nRow, const std::string& unit,
             std::variant<double, std::string> value, double storedWithin = 0.0) {
        m_values.push_back({m_constraint, label, nRow, unit, std::move(value), storedWithin, m_place});
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
                NumberOrWord(values[i], !unit.empty()));
    }

    void AddBands(const MfxArray<MfxTableRow>& rows) {
        const char* kLabels[] = {"from", "to", "angle 1", "angle 2", "angle 3"};
        for (int i = 0; i < rows.GetCount(); ++i) {
            m_place.nRow = i + 1;
            for (std::size_t nCell = 0; nCell < std::min(rows[i].cells.size(), std::size(kLabels)); ++nCell) {
                const CString& strCell = rows[i].cells[nCell];
                const std::string unit =
                    nCell < 2 ? LengthUnitSymbol(m_rule.m_nLengthUnit) : AngleUnitSymbol(m_rule.m_nAngleUnit);
                if (strCell.IsEmpty() || !IsNumericText(strCell))
                    Add(kLabels[nCell], i + 1, "", strCell.IsEmpty() ? "-" : ToUtf8(strCell));
                else
                    Add(kLabels[nCell], i + 1, unit, NumberOrWord(ParseDouble(strCell), true),
                        kHalfOfSixDecimals);
            }
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
    std::vector<RuleValue> m_values;
};

}  // namespace

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

const RuleValue* FindPlace(const std::vector<RuleValue>& values, const RuleValue& place,
                           std::size_t nLikely) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const RuleValue& value = values[(nLikely + i) % values.size()];
        if (value.nRow == place.nRow && value.label == place.label && value.constraint == place.constraint)
            return &value;
    }
    return nullptr;
}

std::string FormatRuleValue(const RuleValue& value, int nDigits) {
    if (const std::string* pText = std::get_if<std::string>(&value.value)) return *pText;
    return FormatNumber(std::get<double>(value.value), nDigits) +
           (value.unit.empty() ? "" : " " + value.unit);
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
