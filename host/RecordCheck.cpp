#include "RecordCheck.h"

#include "DraftTableCheck.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "RuleValues.h"
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

CString AttributeOf(const MfxXMLNode& element, const CString& strName) {
    CString strValue;
    element.GetAttributeValue(strName, strValue);
    return strValue;
}

bool IsAnyOf(const CString& strName, std::initializer_list<const wchar_t*> names) {
    return std::ranges::any_of(names, [&](const wchar_t* pszName) { return strName == pszName; });
}

class RecordChecker {
  public:
    explicit RecordChecker(const RuleDocument& document) : m_document(document) {}

    std::vector<Finding> Check() {
        CheckRoot();
        for (const RuleDocument::Entry& entry : m_document.GetEntries()) {
            m_pEntry = &entry;
            if (!entry.pRule) {
                AddUnknownRule();
                continue;
            }
            CheckAttributes(*entry.pRecord);
            CheckRepetition();
            CheckParameters(*entry.pRecord, entry.pRule->m_paramArray);
            CheckConstraints(entry);
            if (entry.pRule->FindParameterInArray(kThicknessMinId)) CheckOlderTable(*entry.pRecord);
            CheckMassUnit(entry);
        }
        for (const MfxXMLNode& rule : m_document.FindNestedRules()) {
            m_pEntry = m_document.FindEntry(rule);
            Add(rule, "the rule " + Quoted(AttributeOf(rule, kNameAttribute)) +
                          " stands inside another element, where it is not read");
        }
        for (const MfxXmlFlaw& flaw : m_document.FindFlaws()) AddFlaw(flaw);
        return std::move(m_findings);
    }

  private:
    void Add(const MfxXMLNode& element, const std::string& text) {
        AddAs(Severity::Error, true, element, text);
    }

    void AddAs(Severity severity, bool bUnread, const MfxXMLNode& element, const std::string& text) {
        Finding finding = m_document.StartFinding(severity, m_pEntry, {m_nConstraint, m_nParamId});
        finding.nLine = m_document.GetLine(element);
        finding.text = text;
        finding.bUnread = bUnread;
        m_findings.push_back(std::move(finding));
    }

    // Rules of other modules are nothing wrong, but nobody here can say what in them has a unit.
    void AddUnknownRule() {
        const CString strModule = AttributeOf(*m_pEntry->pRecord, L"Module");
        AddAs(strModule.CompareNoCase(kModuleName) == 0 ? Severity::Error : Severity::Warning, true,
              *m_pEntry->pRecord, "a rule of module " + Quoted(strModule) + " that is not known here");
    }

    void CheckRoot() {
        constexpr const wchar_t* kAttributes[][2] = {
            {L"Version", L"1"}, {L"Unit", L"millimetres"}, {L"AngleUnit", L"degrees"}};
        const MfxXMLNode root = m_document.GetRoot();
        CString strValue;
        for (const auto& [pszName, pszTakenFor] : kAttributes)
            if (!root.GetAttributeValue(pszName, strValue))
                AddAs(Severity::Warning, false, root,
                      "MfxRules: " + ToUtf8(pszName) + " is missing and taken for " + ToUtf8(pszTakenFor));
    }

    void CheckRepetition() {
        if (!m_ruleIds.insert(m_pEntry->pRule->GetRuleId()).second)
            AddAs(Severity::Warning, false, *m_pEntry->pRecord, "the document has this rule more than once");
    }

    // Of an attribute that stands twice a conversion would change the first one alone; control characters it
    // keeps.
    void AddFlaw(const MfxXmlFlaw& flaw) {
        m_pEntry = m_document.FindEntry(flaw.element);
        const std::string element = Shortened(flaw.element.GetNodeName()) + ": ";
        const std::string attribute = Shortened(flaw.strAttribute);
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
                Add(record, "Rule: " + ToUtf8(strName) + "=" + Quoted(strValue) + " is not a whole number");
        }
    }

    // The rule keeps its own constraints when the record has another number of them.
    void CheckConstraints(const RuleDocument::Entry& entry) {
        const std::unique_ptr<MfxXMLNodeList> pElements(entry.pRecord->GetNodeList(kConstraintTag));
        const auto& constraints = entry.pRule->m_constraintArray;
        std::set<CString> names;
        for (long i = 0; i < pElements->GetSize(); ++i) CheckConstraint(*(*pElements)[i], names);
        if (pElements->GetSize() > 0 && pElements->GetSize() != constraints.GetCount())
            Add(*entry.pRecord,
                "the record has " + Count(static_cast<std::size_t>(pElements->GetSize()), "constraint") +
                    ", the rule " + std::to_string(constraints.GetCount()) + "; they were not read");
        for (int i = 0; i < pElements->GetSize() && i < constraints.GetCount(); ++i) {
            m_nConstraint = i;
            CheckParameters(*(*pElements)[i], constraints[i]->m_paramArray);
            CheckLengths(*(*pElements)[i], constraints[i]->m_paramArray);
        }
        m_nConstraint = -1;
    }

    void CheckConstraint(const MfxXMLNode& constraint, std::set<CString>& names) {
        CString strValue;
        for (const CString& strName : kConstraintAttributes)
            if (!constraint.GetAttributeValue(strName, strValue))
                Add(constraint, "Constraint: " + ToUtf8(strName) + " is missing");
        CheckStatus(constraint);
        if (AttributeOf(constraint, kStatusAttribute) == L"0" &&
            m_pEntry->pRule->FindParameterInArray(kMassUnitId))
            AddAs(Severity::Hint, false, constraint,
                  "Constraint: Status=\"0\" says nothing: this rule uses all of its constraints");
        if (!constraint.GetAttributeValue(kValueTag, strValue)) return;
        if (strValue.IsEmpty()) AddAs(Severity::Error, false, constraint, "Constraint: its name is empty");
        if (!names.insert(strValue).second)
            AddAs(Severity::Error, false, constraint,
                  "Constraint: the name " + Quoted(strValue) + " stands here again");
    }

    // Saving writes a switch as 0 or 1.
    void CheckStatus(const MfxXMLNode& element) {
        CString strStatus;
        if (element.GetAttributeValue(kStatusAttribute, strStatus) && strStatus != L"0" && strStatus != L"1")
            Add(element,
                ToUtf8(element.GetNodeName()) + ": Status=" + Quoted(strStatus) + " is neither 0 nor 1");
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
        ForEachChild(parent, kParameterTag, [&](const MfxXMLNode& parameter) {
            m_nParamId = ParameterIdOf(parameter);
            CheckParameter(parameter, FindParameter(params, m_nParamId), seen.insert(m_nParamId).second);
        });
        for (const MfxParamRecord& record : params) {
            m_nParamId = record.m_pStorage->m_nParamId;
            if (!seen.contains(m_nParamId)) Add(parent, "it is missing");
        }
        m_nParamId = 0;
    }

    void CheckParameter(const MfxXMLNode& parameter, const CMfxParamStorage* pStorage, bool bFirst) {
        const bool bLegacy = m_nParamId == kLegacyMaterialTableId || m_nParamId == kLegacyMaterialSwitchId;
        if (!pStorage) {
            if (bLegacy && !bFirst) Add(parameter, "it stands here again; only the last one is read");
            if (!bLegacy)
                AddAs(Severity::Warning, false, parameter, "it is none of the rule's and stays as it is");
        } else if (!bFirst) {
            Add(parameter, "it stands here again; only the first one is read");
        } else {
            CString strStatus;
            if (!parameter.GetAttributeValue(kStatusAttribute, strStatus))
                Add(parameter, "Parameter: Status is missing");
            CheckStatus(parameter);
            CheckKind(parameter, *pStorage);
            CheckValues(parameter, *pStorage);
            if (const auto criteria = parameter.FindChild(kCriteriaTag)) CheckCriteria(*criteria);
        }
    }

    // The material table of older records and the parameter that switches it on. The rule writes constraints
    // in their place.
    void CheckOlderTable(const MfxXMLNode& record) {
        ForEachChild(record, kParameterTag, [&](const MfxXMLNode& parameter) {
            m_nParamId = ParameterIdOf(parameter);
            if (m_nParamId == kLegacyMaterialTableId || m_nParamId == kLegacyMaterialSwitchId) {
                if (parameter.HasComments()) Add(parameter, "a comment in it would be lost by saving");
                CheckDropped(parameter);
            }
            if (m_nParamId == kLegacyMaterialTableId)
                ForEachChild(parameter, kValueTag, [&](const MfxXMLNode& row) { CheckOlderRow(row); });
            if (m_nParamId == kLegacyMaterialSwitchId) CheckReals(parameter);
        });
        m_nParamId = 0;
    }

    // What in an element that saving drops is neither read nor the same in every record.
    void CheckDropped(const MfxXMLNode& element) {
        const auto add = [&](const MfxXMLNode& at, const CString& strName) {
            Add(at, Shortened(strName) + ": it would be lost by saving, which gives this older form up");
        };
        for (const CString& strName : element.GetAttributeNames())
            if (!IsAnyOf(strName, {L"Name", L"Type", L"Status", L"CriteriaType", L"Attribute1", L"Attribute2",
                                   L"Attribute3"}))
                add(element, strName);
        if (element.GetNodeName() == L"Remarks" && !element.GetNodeValue().IsEmpty())
            add(element, L"Remarks");
        ForEachChild(element, CString(), [&](const MfxXMLNode& child) {
            if (IsAnyOf(child.GetNodeName(),
                        {L"Operator", L"OperatorOption", L"ParameterType", L"Value", L"ResultCriteria",
                         L"PercentDeviation", L"AbsoluteDeviation", L"AbsoluteValue", L"Remarks"}))
                CheckDropped(child);
            else
                add(child, child.GetNodeName());
        });
    }

    void CheckOlderRow(const MfxXMLNode& row) {
        CheckStrayText(row);
        for (const wchar_t* pszName : {L"Attribute2", L"Attribute3"}) {
            CString strLimit;
            if (!row.GetAttributeValue(pszName, strLimit) || !IsPlainNumber(strLimit))
                Add(row, ToUtf8(pszName) + ": " + NotANumber(strLimit, ParseDouble(strLimit)));
        }
    }

    void CheckMassUnit(const RuleDocument::Entry& entry) {
        const CMfxParamStorage* pUnit = entry.pRule->FindParameterInArray(kMassUnitId);
        if (!pUnit || pUnit->GetValues<CString>().IsEmpty()) return;
        const std::string label = ToUtf8(pUnit->GetValues<CString>()[0]);
        m_nParamId = kMassUnitId;
        if (MassUnitSymbol(label) != label)
            Add(*entry.pRecord,
                "Value: " + Quoted(FromUtf8(label)) + " is not a mass unit: mg, g, kg, t, lb");
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
                    Add(number, ToUtf8(strTag) + ": " + Quoted(strText) + " is not a whole number");
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
        if (storage.GetType() != TypeDouble || storage.m_paramType == ParamTable) return;
        const int nReals = CheckReals(parameter);
        if (bLimit && nReals > 2)
            Add(parameter, "Value: there are too many; a limit has one value, or a switch and one value");
        if (bLimit && nReals == 0) AddAs(Severity::Error, false, parameter, "Value: the limit has none");
    }

    // Maps of entries of values.
    void CheckCriteria(const MfxXMLNode& criteria) {
        CheckStatus(criteria);
        CString strType;
        if (criteria.GetAttributeValue(L"CriteriaType", strType) && !IsInteger(strType))
            Add(criteria, "ResultCriteria: CriteriaType=" + Quoted(strType) + " is not a whole number");
        ForEachChild(criteria, CString(), [&](const MfxXMLNode& map) {
            CheckStrayText(map);
            ForEachChild(map, CString(), [&](const MfxXMLNode& entry) { CheckDeviation(entry); });
        });
    }

    void CheckDeviation(const MfxXMLNode& entry) {
        constexpr int kMostValues = 2;
        const CString strSeverity = entry.GetNodeName();
        if (strSeverity != L"Warning" && strSeverity != L"Info" && strSeverity != L"Unknown")
            Add(entry, Shortened(strSeverity) + ": it is not a severity; those are Warning, Info, Unknown");
        if (CheckReals(entry) > kMostValues)
            Add(entry, Shortened(strSeverity) + ": only its first two values are read");
    }

    // Returns how many there are.
    int CheckReals(const MfxXMLNode& parent) {
        int nCount = 0;
        ForEachChild(parent, kValueTag, [&](const MfxXMLNode& element) {
            double value = 0.0;
            const CString strText = element.GetNodeValue();
            if (!IsReal(strText) || !ParseReal(strText, value) || !std::isfinite(value))
                Add(element, "Value: " + NotANumber(strText, value));
            ++nCount;
        });
        return nCount;
    }

    // Of most texts some digits are read all the same, or 0.
    static std::string NotANumber(const CString& strText, double value) {
        return Quoted(strText) + " is not a number" +
               (std::isfinite(value) ? " and reads as " + FormatNumber(value) : "");
    }

    // Writing an element anew leaves only what the rule has to say in it.
    void CheckStrayText(const MfxXMLNode& element) {
        const CString strText = element.GetNodeValue();
        if (!CString(strText).Trim().IsEmpty())
            Add(element, Shortened(element.GetNodeName()) + ": the text " + Quoted(strText) + " is not read");
    }

    // Tables hold numbers in text form; an empty cell is a value not given. Cells are read up to the first
    // number that is missing, and rows of fewer than four are never converted. The dialog drops a row unless
    // it has five cells, of which only the last one may be empty.
    void CheckRows(const MfxXMLNode& parameter, const MfxArray<MfxTableRow>& rows) {
        int nRow = 0;
        ForEachChild(parameter, kValueTag,
                     [&](const MfxXMLNode& row) { CheckCells(row, rows[nRow++].cells); });
    }

    void CheckCells(const MfxXMLNode& row, const std::vector<CString>& cells) {
        constexpr std::ptrdiff_t kFewestCells = DraftCell::ThirdAngle, kMostCells = DraftCell::Count;
        const auto nCells = std::ssize(cells);
        for (std::size_t i = 0; i < cells.size(); ++i)
            if (!cells[i].IsEmpty() && !IsPlainNumber(cells[i]))
                Add(row, ToUtf8(CellName(i)) + ": " + NotANumber(cells[i], ParseDouble(cells[i])));
        if (nCells < kFewestCells)
            Add(row, "Value: the row has " + Count(cells.size(), "cell") + " instead of five");
        if (nCells > kMostCells)
            AddAs(Severity::Warning, false, row,
                  "Value: the row has " + Count(cells.size(), "cell") + "; only the first five are used");
        const auto nEmpty = std::ranges::find_if(cells, &CString::IsEmpty) - cells.begin();
        if (nCells >= kFewestCells && (nCells < kMostCells || nEmpty < kFewestCells))
            AddAs(Severity::Warning, false, row,
                  "Value: the dialog would drop this row, because its cell " + std::to_string(nEmpty + 1) +
                      (nEmpty < nCells ? " is empty" : " is missing"));
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
    int m_nConstraint = -1;                         // the constraint in it that is being checked
    long m_nParamId = 0;                            // the parameter that is being checked
    std::set<int> m_ruleIds;                        // of the rules so far
};

}  // namespace

std::vector<Finding> CheckRecords(const RuleDocument& document) {
    return RecordChecker(document).Check();
}

std::vector<Finding> FindUnread(const RuleDocument& document) {
    std::vector<Finding> findings = CheckRecords(document);
    std::erase_if(findings, [](const Finding& finding) { return !finding.bUnread; });
    SortByLine(findings);
    return findings;
}

bool PrintFindings(const RuleDocument& document, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings)
        PrintError(document.Place(finding.nLine) + FormatFinding(finding) + "\n");
    return !findings.empty();
}
