#include "RuleValues.h"

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

// Symbol of the unit in which the rule keeps its masses.
std::string MassUnitLabel(const CMfxRule& rule) {
    const CMfxParamStorage* pUnit = FindParameter(rule.m_paramArray, kMassUnitId);
    const bool bHasLabel = pUnit && pUnit->GetType() == TypeText && !pUnit->GetValues<CString>().IsEmpty();
    return MassUnitSymbol(bHasLabel ? ToUtf8(pUnit->GetValues<CString>()[0]) : "");
}

class ValueLister {
  public:
    explicit ValueLister(const CMfxRule& rule) : m_rule(rule) {}

    std::vector<RuleValue> List() {
        Add("status", 0, "", std::to_string(m_rule.m_nStatus));
        Add("severity", 0, "", std::to_string(m_rule.m_nSeverity));
        AddParameters(m_rule.m_paramArray);
        for (const CMFXConstraint* pConstraint : m_rule.m_constraintArray) {
            m_constraint = PlaceOf(*pConstraint);
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
        m_values.push_back({m_constraint, label, nRow, own, std::move(value), storedWithin});
    }

    void AddParameters(const MfxParamArray& params) {
        for (const MfxParamRecord& record : params) {
            const CMfxParamStorage& storage = *record.m_pStorage;
            const std::string label = ToUtf8(storage.m_strName);
            Add(label + ", active", 0, "", storage.m_bStatus ? "yes" : "no");
            if (storage.GetType() == TypeDouble)
                AddNumbers(storage, label);
            else if (storage.GetType() == TypeTableRow)
                AddBands(storage.GetValues<MfxTableRow>());
            else
                std::visit([&](const auto& values) { AddTexts(values, label); }, storage.m_values);
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
        for (int i = 0; i < rows.GetCount(); ++i)
            for (std::size_t nCell = 0; nCell < std::min(rows[i].cells.size(), columns.size()); ++nCell)
                Add(columns[nCell].name, i + 1, columns[nCell].unit, ContentOfCell(rows[i], nCell),
                    kHalfOfSixDecimals);
    }

    template <class Values>
    void AddTexts(const Values& values, const std::string& label) {
        for (int i = 0; i < values.GetCount(); ++i)
            Add(label, values.GetCount() > 1 ? i + 1 : 0, "", ToUtf8(ToText(values[i])));
    }

    const CMfxRule& m_rule;
    std::string m_constraint;  // the one being listed
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
    constexpr std::size_t kBounds = 2;  // angles follow
    const CString& strCell = row.cells[nCell];
    if (strCell.IsEmpty()) return std::monostate();
    if (!IsNumericText(strCell) || !IsReal(strCell)) return ToUtf8(strCell);
    return ContentOfNumber(ParseDouble(strCell), nCell < kBounds);
}

std::string FormatNumberOrWord(const NumberOrWord& content) {
    if (const double* pNumber = std::get_if<double>(&content)) return FormatNumber(*pNumber);
    const std::string* pWord = std::get_if<std::string>(&content);
    return pWord ? *pWord : "-";
}

std::string FormatNumber(double value) {
    const bool bLarge = std::fabs(value) >= 1e6 && std::fabs(value) < 1e15;
    char text[32];
    const auto format = bLarge ? std::chars_format::fixed : std::chars_format::general;
    return {text, std::to_chars(text, text + sizeof text, value, format, bLarge ? 0 : 7).ptr};
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

std::string FormatRuleValue(const RuleValue& value) {
    return FormatNumberOrWord(value.value) + (value.unit.empty() ? "" : " " + value.unit);
}

bool IsSameValue(const RuleValue& first, const RuleValue& second) {
    const double* pFirst = std::get_if<double>(&first.value);
    const double* pSecond = std::get_if<double>(&second.value);
    if (!pFirst || !pSecond) return first.value == second.value;
    constexpr double kNineDigits = 1e-9;
    return std::fabs(*pFirst - *pSecond) <= kNineDigits * std::max(std::fabs(*pFirst), std::fabs(*pSecond)) +
                                                1.01 * (first.storedWithin + second.storedWithin);
}
