#include "RecordCheck.h"

#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "Text.h"
#include "UnitNames.h"
#include "XmlNumber.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>

namespace {

// Strings, as the node operations take them: records are read by the thousand.
const CString kNameAttribute = L"Name";
const CString kStatusAttribute = L"Status";
const CString kValueTag = L"Value";
const CString kCriteriaTag = L"ResultCriteria";
const CString kCellPrefix = L"Attribute";
const CString kRuleNumbers[] = {kStatusAttribute, L"LifeStatus", L"Severity"};
const CString kConstraintAttributes[] = {L"Type", kValueTag, kStatusAttribute};
const CString kParameterNumbers[] = {L"Operator", L"OperatorOption", L"ParameterType"};

template <class Visit>
void ForEachChild(const MfxXMLNode& parent, const CString& strTag, Visit visit) {
    for (auto child = parent.FindChild(strTag); child; child = child->FindNext(strTag)) visit(*child);
}

class RecordChecker {
  public:
    explicit RecordChecker(const RuleDocument& document) : m_document(document) {}

    std::vector<Finding> Check() {
        for (const RuleDocument::Entry& entry : m_document.GetEntries()) {
            m_pEntry = &entry;
            if (!entry.pRule) {
                AddUnknownRule();
                continue;
            }
            CheckAttributes(*entry.pRecord);
            CheckParameters(*entry.pRecord, entry.pRule->m_paramArray);
            CheckConstraints(entry);
            if (entry.pRule->FindParameterInArray(kThicknessMinId)) CheckOlderTable(*entry.pRecord);
            CheckMassUnit(entry);
        }
        for (const MfxXMLNode& rule : m_document.FindNestedRules()) {
            m_pEntry = m_document.FindEntry(rule);
            CString strName;
            rule.GetAttributeValue(kNameAttribute, strName);
            Add(rule,
                "the rule \"" + ToUtf8(strName) + "\" stands inside another element, where it is not read");
        }
        for (const MfxXmlFlaw& flaw : m_document.FindFlaws()) AddFlaw(flaw);
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
        finding.rule = m_pEntry ? RuleName() : "";
        finding.nRuleId = m_pEntry && m_pEntry->pRule ? m_pEntry->pRule->GetRuleId() : 0;
        finding.nParamId = m_nParamId;
        finding.text = text;
        finding.bUnread = bUnread;
        m_findings.push_back(std::move(finding));
    }

    // Rules of other modules are nothing wrong, but nobody here can say what in them has a unit.
    void AddUnknownRule() {
        CString strModule;
        m_pEntry->pRecord->GetAttributeValue(L"Module", strModule);
        AddAs(strModule.CompareNoCase(kModuleName) == 0 ? Severity::Error : Severity::Warning, true,
              *m_pEntry->pRecord,
              "the rule \"" + RuleName() + "\" of module \"" + ToUtf8(strModule) + "\" is not known here");
    }

    std::string RuleName() const {
        CString strName;
        m_pEntry->pRecord->GetAttributeValue(kNameAttribute, strName);
        return ToUtf8(m_pEntry->pRule ? m_pEntry->pRule->m_strDisplayName : strName);
    }

    // Of an attribute that stands twice a conversion would change the first one alone; control characters it
    // keeps.
    void AddFlaw(const MfxXmlFlaw& flaw) {
        m_pEntry = m_document.FindEntry(flaw.element);
        const std::string element = ToUtf8(flaw.element.GetNodeName()) + ": ";
        const std::string attribute = ToUtf8(flaw.strAttribute);
        if (flaw.kind == MfxXmlFlaw::RepeatedAttribute)
            Add(flaw.element, element + attribute + " stands here again; only the first one is read");
        else
            AddAs(Severity::Warning, false, flaw.element,
                  element + (attribute.empty() ? "the text" : attribute) +
                      " holds a control character, for which other programs may refuse the document");
    }

    void CheckAttributes(const MfxXMLNode& record) {
        for (const CString& strName : kRuleNumbers) {
            CString strValue;
            if (!record.GetAttributeValue(strName, strValue))
                AddAs(Severity::Warning, false, record,
                      "Rule: " + ToUtf8(strName) + " is missing and reads as -1");
            else if (!IsInteger(strValue))
                Add(record,
                    "Rule: " + ToUtf8(strName) + "=\"" + ToUtf8(strValue) + "\" is not a whole number");
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
        for (const CString& strName : kConstraintAttributes)
            if (!constraint.GetAttributeValue(strName, strValue))
                Add(constraint, "Constraint: " + ToUtf8(strName) + " is missing");
        if (constraint.GetAttributeValue(kStatusAttribute, strValue) && strValue != L"0" && strValue != L"1")
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
        std::vector<long> seen;
        ForEachChild(parent, kParameterTag, [&](const MfxXMLNode& parameter) {
            m_nParamId = ParameterIdOf(parameter);
            CheckParameter(parameter, FindParameter(params, m_nParamId),
                           std::find(seen.begin(), seen.end(), m_nParamId) == seen.end());
            seen.push_back(m_nParamId);
        });
        for (const MfxParamRecord& record : params) {
            m_nParamId = record.m_pStorage->m_nParamId;
            if (std::find(seen.begin(), seen.end(), m_nParamId) == seen.end()) Add(parent, "it is missing");
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
            if (const auto criteria = parameter.FindChild(kCriteriaTag)) CheckCriteria(*criteria);
        }
    }

    // The material table of older records and the parameter that switches it on.
    void CheckOlderTable(const MfxXMLNode& record) {
        ForEachChild(record, kParameterTag, [&](const MfxXMLNode& parameter) {
            m_nParamId = ParameterIdOf(parameter);
            if (m_nParamId == kLegacyMaterialTableId)
                ForEachChild(parameter, kValueTag, [&](const MfxXMLNode& row) { CheckOlderRow(row); });
            if (m_nParamId == kLegacyMaterialSwitchId) CheckReals(parameter);
        });
        m_nParamId = 0;
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
        for (const CString& strTag : kParameterNumbers)
            ForEachChild(parameter, strTag, [&](const MfxXMLNode& number) {
                const CString strText = number.GetNodeValue();
                if (!IsInteger(strText))
                    Add(number, ToUtf8(strTag) + ": \"" + ToUtf8(strText) + "\" is not a whole number");
            });
        const int nValues =
            std::visit([](const auto& values) { return values.GetCount(); }, storage.m_values);
        if (storage.m_operator == OperatorRanges && nValues % 2 != 0 && nValues % 3 != 0)
            Add(parameter, "Operator: it asks for pairs or threes of values, and these are neither");
    }

    void CheckValues(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        const bool bLimit = m_nParamId == kThicknessMinId || m_nParamId == kThicknessMaxId;
        if (storage.GetType() == TypeTableRow && storage.m_paramType == ParamTable)
            CheckRows(parameter, storage.GetValues<MfxTableRow>());
        if (storage.GetType() == TypeDouble && CheckReals(parameter) > 2 && bLimit)
            Add(parameter, "Value: there are too many; a limit has one value, or a switch and one value");
    }

    // Maps of entries of values.
    void CheckCriteria(const MfxXMLNode& criteria) {
        ForEachChild(criteria, CString(), [&](const MfxXMLNode& map) {
            CheckStrayText(map);
            ForEachChild(map, CString(), [&](const MfxXMLNode& entry) { CheckDeviation(entry); });
        });
    }

    void CheckDeviation(const MfxXMLNode& entry) {
        constexpr int kMostValues = 2;
        const CString strSeverity = entry.GetNodeName();
        if (strSeverity != L"Warning" && strSeverity != L"Info" && strSeverity != L"Unknown")
            Add(entry, ToUtf8(strSeverity) + ": it is not a severity; those are Warning, Info, Unknown");
        if (CheckReals(entry) > kMostValues)
            Add(entry, ToUtf8(strSeverity) + ": only its first two values are read");
    }

    // Returns how many there are.
    int CheckReals(const MfxXMLNode& parent) {
        int nCount = 0;
        ForEachChild(parent, kValueTag, [&](const MfxXMLNode& element) {
            double value = 0.0;
            const CString strText = element.GetNodeValue();
            if (!IsReal(strText) || !ParseReal(strText, value) || !std::isfinite(value))
                Add(element, "Value: \"" + ToUtf8(strText) + "\" is not a number");
            ++nCount;
        });
        return nCount;
    }

    // Writing an element anew leaves only what the rule has to say in it.
    void CheckStrayText(const MfxXMLNode& element) {
        const CString strText = element.GetNodeValue();
        if (!CString(strText).Trim().IsEmpty())
            Add(element,
                ToUtf8(element.GetNodeName()) + ": the text \"" + ToUtf8(strText) + "\" is not read");
    }

    // Tables hold numbers in text form; an empty cell is a value not given. Cells are read up to the first
    // number that is missing, and rows of fewer than four are never converted.
    void CheckRows(const MfxXMLNode& parameter, const MfxArray<MfxTableRow>& rows) {
        int nRow = 0;
        ForEachChild(parameter, kValueTag,
                     [&](const MfxXMLNode& row) { CheckCells(row, rows[nRow++].cells); });
    }

    void CheckCells(const MfxXMLNode& row, const std::vector<CString>& cells) {
        constexpr std::size_t kFewestCells = 4;
        for (std::size_t i = 0; i < cells.size(); ++i)
            if (!cells[i].IsEmpty() && !IsPlainNumber(cells[i]))
                Add(row, ToUtf8(CellName(i)) + ": \"" + ToUtf8(cells[i]) + "\" is not a number");
        if (cells.size() < kFewestCells)
            Add(row, "Value: the row has " + Count(cells.size(), "cell") + " instead of five");
        if (row.GetAttributeCount() != cells.size() && HasFurtherCells(row, cells.size()))
            Add(row, ToUtf8(CellName(cells.size())) + ": it is missing, and the cells after it are not read");
        CheckStrayText(row);
    }

    static CString CellName(std::size_t nCell) {
        return kCellPrefix + FormatInteger(static_cast<std::int64_t>(nCell) + 1);
    }

    static bool HasFurtherCells(const MfxXMLNode& row, std::size_t nCells) {
        std::set<CString> further;
        for (const CString& strName : row.GetAttributeNames())
            if (strName.Left(kCellPrefix.GetLength()) == kCellPrefix) further.insert(strName);
        for (std::size_t i = 0; i < nCells; ++i) further.erase(CellName(i));
        return !further.empty();
    }

    static bool IsPlainNumber(const CString& strText) {
        return IsNumericText(strText) && IsReal(strText) && std::isfinite(ParseDouble(strText));
    }

    const RuleDocument& m_document;
    std::vector<Finding> m_findings;
    const RuleDocument::Entry* m_pEntry = nullptr;  // whose record is being checked
    long m_nParamId = 0;                            // the parameter that is being checked
};

}  // namespace

std::vector<Finding> CheckRecords(const RuleDocument& document) {
    return RecordChecker(document).Check();
}

bool PrintUnread(const RuleDocument& document, int nRuleId) {
    bool bPrinted = false;
    for (const Finding& finding : CheckRecords(document)) {
        if (!finding.bUnread || (nRuleId && finding.nRuleId != nRuleId)) continue;
        PrintError(document.Place(finding.nLine) + FormatFinding(finding) + "\n");
        bPrinted = true;
    }
    return bPrinted;
}
