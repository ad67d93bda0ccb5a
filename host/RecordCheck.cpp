#include "RecordCheck.h"

#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "Text.h"
#include "UnitNames.h"
#include "XmlNumber.h"

#include <cmath>
#include <memory>
#include <set>

namespace {

class RecordChecker {
  public:
    explicit RecordChecker(const RuleDocument& document) : m_document(document) {}

    std::vector<Finding> Check() {
        for (const RuleDocument::Entry& entry : m_document.GetEntries()) {
            if (!entry.pRule) {
                AddUnknownRule(entry);
                continue;
            }
            m_rule = ToUtf8(entry.pRule->m_strDisplayName);
            m_nRuleId = entry.pRule->GetRuleId();
            CheckAttributes(*entry.pRecord);
            CheckParameters(*entry.pRecord, entry.pRule->m_paramArray);
            CheckConstraints(entry);
            if (entry.pRule->FindParameterInArray(kThicknessMinId)) CheckOlderTable(*entry.pRecord);
            CheckMassUnit(entry);
        }
        m_rule.clear();
        m_nRuleId = 0;
        for (const MfxXMLNode& rule : m_document.FindNestedRules())
            Add(rule, "this rule stands inside another element, where it is not read");
        return std::move(m_findings);
    }

  private:
    void Add(const MfxXMLNode& element, const std::string& text) {
        AddAs(Severity::Error, true, element, text);
    }

    void AddAs(Severity severity, bool bUnread, const MfxXMLNode& element, const std::string& text) {
        Finding finding;
        finding.severity = severity;
        finding.nLine = m_document.GetLine(element);
        finding.rule = m_rule;
        finding.nRuleId = m_nRuleId;
        finding.nParamId = m_nParamId;
        finding.text = text;
        finding.bUnread = bUnread;
        m_findings.push_back(finding);
    }

    // Rules of other modules are nothing wrong, but nobody here can say what in them has a unit.
    void AddUnknownRule(const RuleDocument::Entry& entry) {
        CString strName, strModule;
        entry.pRecord->GetAttributeValue(L"Name", strName);
        entry.pRecord->GetAttributeValue(L"Module", strModule);
        m_rule = ToUtf8(strName);
        m_nRuleId = 0;
        AddAs(strModule.CompareNoCase(kModuleName) == 0 ? Severity::Error : Severity::Warning, true,
              *entry.pRecord,
              "the rule \"" + m_rule + "\" of module \"" + ToUtf8(strModule) + "\" is not known here");
    }

    void CheckAttributes(const MfxXMLNode& record) {
        for (const wchar_t* pszName : {L"Status", L"LifeStatus", L"Severity"}) {
            CString strValue;
            if (!record.GetAttributeValue(pszName, strValue))
                AddAs(Severity::Warning, false, record,
                      "Rule: " + ToUtf8(pszName) + " is missing and reads as -1");
            else if (!IsInteger(strValue))
                Add(record,
                    "Rule: " + ToUtf8(pszName) + "=\"" + ToUtf8(strValue) + "\" is not a whole number");
        }
    }

    // The rule keeps its own constraints when the record has another number of them.
    void CheckConstraints(const RuleDocument::Entry& entry) {
        const std::unique_ptr<MfxXMLNodeList> pElements(entry.pRecord->GetNodeList(kConstraintTag));
        const auto& constraints = entry.pRule->m_constraintArray;
        for (long i = 0; i < pElements->GetSize(); ++i) CheckConstraintAttributes(*(*pElements)[i]);
        if (pElements->GetSize() > 0 && pElements->GetSize() != constraints.GetCount())
            Add(*entry.pRecord,
                "the record has " + Count(static_cast<std::size_t>(pElements->GetSize()), "constraint") +
                    ", the rule " + std::to_string(constraints.GetCount()) + "; they were not read");
        for (int i = 0; i < pElements->GetSize() && i < constraints.GetCount(); ++i) {
            CheckParameters(*(*pElements)[i], constraints[i]->m_paramArray);
            CheckLengths(*(*pElements)[i], constraints[i]->m_paramArray);
        }
    }

    void CheckConstraintAttributes(const MfxXMLNode& constraint) {
        CString strValue;
        for (const wchar_t* pszName : {L"Type", L"Value", L"Status"})
            if (!constraint.GetAttributeValue(pszName, strValue))
                Add(constraint, "Constraint: " + ToUtf8(pszName) + " is missing");
        if (constraint.GetAttributeValue(L"Status", strValue) && strValue != L"0" && strValue != L"1")
            Add(constraint, "Constraint: Status=\"" + ToUtf8(strValue) + "\" is neither 0 nor 1");
    }

    // Element i of each list makes band i.
    void CheckLengths(const MfxXMLNode& constraint, const MfxParamArray& params) {
        std::set<int> lengths;
        for (const MfxParamRecord& record : params)
            if (record.m_type == TypeDouble)
                lengths.insert(record.m_pStorage->GetValues<double>().GetCount());
        if (lengths.size() > 1)
            Add(constraint, "Constraint: its parameters have different numbers of values");
    }

    void CheckParameters(const MfxXMLNode& parent, const MfxParamArray& params) {
        std::set<long> seen;
        const std::unique_ptr<MfxXMLNodeList> pElements(parent.GetNodeList(kParameterTag));
        for (long i = 0; i < pElements->GetSize(); ++i) {
            m_nParamId = ParameterIdOf(*(*pElements)[i]);
            CheckParameter(*(*pElements)[i], FindParameter(params, m_nParamId),
                           seen.insert(m_nParamId).second);
        }
        for (const MfxParamRecord& record : params) {
            m_nParamId = record.m_pStorage->m_nParamId;
            if (seen.count(m_nParamId) == 0) Add(parent, "it is missing");
        }
        m_nParamId = 0;
    }

    void CheckParameter(const MfxXMLNode& parameter, const CMfxParamStorage* pStorage, bool bFirst) {
        const bool bLegacy = m_nParamId == kLegacyMaterialTableId || m_nParamId == kLegacyMaterialSwitchId;
        if (!pStorage) {
            if (!bLegacy)
                AddAs(Severity::Warning, false, parameter, "it is none of the rule's and stays as it is");
        } else if (!bFirst) {
            Add(parameter, "it stands here again; only the first one is read");
        } else {
            CheckKind(parameter, *pStorage);
            CheckValues(parameter, *pStorage);
            CheckDeviations(parameter);
        }
    }

    // The material table of older records and the parameter that switches it on.
    void CheckOlderTable(const MfxXMLNode& record) {
        const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kParameterTag));
        for (long i = 0; i < pElements->GetSize(); ++i) {
            m_nParamId = ParameterIdOf(*(*pElements)[i]);
            if (m_nParamId == kLegacyMaterialTableId)
                ForEachValue(*(*pElements)[i], &RecordChecker::CheckOlderRow);
            if (m_nParamId == kLegacyMaterialSwitchId)
                ForEachValue(*(*pElements)[i], &RecordChecker::CheckReal);
        }
        m_nParamId = 0;
    }

    void ForEachValue(const MfxXMLNode& element, void (RecordChecker::*check)(const MfxXMLNode&)) {
        const std::unique_ptr<MfxXMLNodeList> pValues(element.GetNodeList(L"Value"));
        for (long i = 0; i < pValues->GetSize(); ++i) (this->*check)(*(*pValues)[i]);
    }

    void CheckOlderRow(const MfxXMLNode& row) {
        for (const wchar_t* pszName : {L"Attribute2", L"Attribute3"}) {
            CString strLimit;
            if (!row.GetAttributeValue(pszName, strLimit) || !IsPlainNumber(strLimit))
                Add(row, ToUtf8(pszName) + ": \"" + ToUtf8(strLimit) + "\" is not a number");
        }
    }

    void CheckMassUnit(const RuleDocument::Entry& entry) {
        const CMfxParamStorage* pUnit = entry.pRule->FindParameterInArray(kMassUnitId);
        if (!pUnit || pUnit->GetValues<CString>().IsEmpty()) return;
        const std::string label = ToUtf8(pUnit->GetValues<CString>()[0]);
        m_nParamId = kMassUnitId;
        if (MassUnitSymbol(label) != label)
            Add(*entry.pRecord, "Value: \"" + label + "\" is not a mass unit: mg, g, kg, t, lb");
        m_nParamId = 0;
    }

    // With such an operator or type the rule would not write the parameter, or its values, again.
    void CheckKind(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        if (!storage.IsSaved())
            Add(parameter, "Operator: it is missing or says that the parameter is not saved");
        if ((storage.GetType() == TypeTableRow) != (storage.m_paramType == ParamTable))
            Add(parameter, "ParameterType: it does not fit the parameter's values");
        const int nValues =
            std::visit([](const auto& values) { return values.GetCount(); }, storage.m_values);
        if (storage.m_operator == OperatorRanges && nValues % 2 != 0 && nValues % 3 != 0)
            Add(parameter, "Operator: it asks for pairs or threes of values, and these are neither");
    }

    void CheckValues(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        const bool bLimit = m_nParamId == kThicknessMinId || m_nParamId == kThicknessMaxId;
        if (bLimit && CountValues(parameter) > 2)
            Add(parameter, "Value: a limit has one value, or a switch and one value");
        if (storage.GetType() == TypeTableRow) ForEachValue(parameter, &RecordChecker::CheckCells);
        if (storage.GetType() == TypeDouble) ForEachValue(parameter, &RecordChecker::CheckReal);
    }

    static long CountValues(const MfxXMLNode& parameter) {
        return std::unique_ptr<MfxXMLNodeList>(parameter.GetNodeList(L"Value"))->GetSize();
    }

    // The numbers of the result criteria: maps of entries of values.
    void CheckDeviations(const MfxXMLNode& parameter) {
        const std::unique_ptr<MfxXMLNode> pCriteria(parameter.SelectSingleNode(L"ResultCriteria"));
        if (!pCriteria) return;
        const std::unique_ptr<MfxXMLNodeList> pMaps(pCriteria->GetNodeList(L""));
        for (long i = 0; i < pMaps->GetSize(); ++i) {
            const std::unique_ptr<MfxXMLNodeList> pEntries((*pMaps)[i]->GetNodeList(L""));
            for (long j = 0; j < pEntries->GetSize(); ++j)
                ForEachValue(*(*pEntries)[j], &RecordChecker::CheckReal);
        }
    }

    void CheckReal(const MfxXMLNode& element) {
        double value = 0.0;
        const CString strText = element.GetNodeValue();
        if (!IsReal(strText) || !ParseReal(strText, value) || !std::isfinite(value))
            Add(element, "Value: \"" + ToUtf8(strText) + "\" is not a number");
    }

    // Tables hold numbers in text form; an empty cell is a value not given. Cells are read up to the first
    // number that is missing, and rows of fewer than four are never converted.
    void CheckCells(const MfxXMLNode& row) {
        constexpr std::size_t kFewestCells = 4;
        std::size_t nCells = 0;
        CString strCell;
        const auto name = [&] { return L"Attribute" + FormatInteger(static_cast<std::int64_t>(nCells) + 1); };
        for (; row.GetAttributeValue(name(), strCell); ++nCells)
            if (!strCell.IsEmpty() && !IsPlainNumber(strCell))
                Add(row, ToUtf8(name()) + ": \"" + ToUtf8(strCell) + "\" is not a number");
        if (nCells < kFewestCells)
            Add(row, "Value: the row has " + Count(nCells, "cell") + " instead of five");
        std::size_t nCellAttributes = 0;
        for (const CString& strName : row.GetAttributeNames())
            nCellAttributes += strName.Left(9) == L"Attribute";
        if (nCellAttributes != nCells)
            Add(row, ToUtf8(name()) + ": it is missing, and the cells after it are not read");
    }

    static bool IsPlainNumber(const CString& strText) {
        return IsNumericText(strText) && IsReal(strText) && std::isfinite(ParseDouble(strText));
    }

    const RuleDocument& m_document;
    std::vector<Finding> m_findings;
    std::string m_rule;  // the rule whose record is being checked
    int m_nRuleId = 0;
    long m_nParamId = 0;  // the parameter that is being checked
};

}  // namespace

std::vector<Finding> CheckRecords(const RuleDocument& document) {
    return RecordChecker(document).Check();
}

bool PrintUnread(const RuleDocument& document) {
    bool bPrinted = false;
    for (const Finding& finding : CheckRecords(document)) {
        if (!finding.bUnread) continue;
        PrintError(document.Place(finding.nLine) + FormatFinding(finding) + "\n");
        bPrinted = true;
    }
    return bPrinted;
}
