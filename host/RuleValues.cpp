#include "RuleValues.h"

#include "NumberText.h"
#include "RuleParameters.h"
#include "RuleTable.h"
#include "Text.h"
#include "UnitNames.h"
#include "ValueText.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr double kHalfOfSixDecimals = 0.5e-6;

// Bounds without a limit and values not given are words, so that no unit applies to them.
std::variant<double, std::string> NumberOrWord(double value, bool bOfBand) {
    if (bOfBand && value < -kTolerance) return "-";
    if (bOfBand && IsNoUpperLimit(value)) return "no limit";
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

    void Add(const std::string& label, int nRow, const std::string& unit,
             std::variant<double, std::string> value, double storedWithin = 0.0) {
        m_values.push_back({m_constraint, label, nRow, unit, std::move(value), storedWithin});
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
                NumberOrWord(values[i], IsBandParameter(storage.m_nParamId)));
    }

    void AddBands(const MfxArray<MfxTableRow>& rows) {
        const char* kLabels[] = {"from", "to", "angle 1", "angle 2", "angle 3"};
        for (int i = 0; i < rows.GetCount(); ++i)
            for (std::size_t nCell = 0; nCell < std::min(rows[i].cells.size(), std::size(kLabels)); ++nCell) {
                const CString& strCell = rows[i].cells[nCell];
                const std::string unit =
                    nCell < 2 ? LengthUnitSymbol(m_rule.m_nLengthUnit) : AngleUnitSymbol(m_rule.m_nAngleUnit);
                if (strCell.IsEmpty() || !IsNumericText(strCell))
                    Add(kLabels[nCell], i + 1, "", strCell.IsEmpty() ? "-" : ToUtf8(strCell));
                else
                    Add(kLabels[nCell], i + 1, unit, NumberOrWord(ParseDouble(strCell), nCell < 2),
                        kHalfOfSixDecimals);
            }
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

std::vector<RuleValue> ListRuleValues(const CMfxRule& rule) {
    return ValueLister(rule).List();
}

std::string FormatRuleValue(const RuleValue& value) {
    if (const std::string* pText = std::get_if<std::string>(&value.value)) return *pText;
    return FormatNumber(std::get<double>(value.value)) + (value.unit.empty() ? "" : " " + value.unit);
}

bool IsSameValue(const RuleValue& first, const RuleValue& second) {
    if (first.value.index() != second.value.index()) return false;
    if (const std::string* pText = std::get_if<std::string>(&first.value))
        return *pText == std::get<std::string>(second.value);
    constexpr double kNineDigits = 1e-9;
    const double a = std::get<double>(first.value), b = std::get<double>(second.value);
    return a == b || std::fabs(a - b) <= kNineDigits * std::max(std::fabs(a), std::fabs(b)) +
                                             1.01 * (first.storedWithin + second.storedWithin);
}
