#include "RecordProblems.h"

#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleParameters.h"
#include "Text.h"
#include "UnitNames.h"
#include "XmlNumber.h"

#include <cmath>
#include <memory>
#include <set>

namespace {

class ProblemFinder {
  public:
    explicit ProblemFinder(const RuleDocument& document) : m_document(document) {}

    std::vector<std::string> Find() {
        for (const RuleDocument::Entry& entry : m_document.GetEntries()) {
            if (!entry.pRule) {
                AddUnknownRule(entry);
                continue;
            }
            CheckAttributes(*entry.pRecord);
            CheckParameters(*entry.pRecord, entry.pRule->m_paramArray);
            CheckConstraints(entry);
            if (entry.pRule->FindParameterInArray(kThicknessMinId)) CheckOlderTable(*entry.pRecord);
            CheckMassUnit(entry);
        }
        for (const MfxXMLNode& rule : m_document.FindNestedRules())
            Add(rule, "this rule stands inside another element, where it is not read");
        return std::move(m_problems);
    }

  private:
    void Add(const MfxXMLNode& element, const std::string& text) {
        m_problems.push_back(m_document.Place(m_document.GetLine(element)) + text);
    }

    void AddUnknownRule(const RuleDocument::Entry& entry) {
        CString strName, strModule;
        entry.pRecord->GetAttributeValue(L"Name", strName);
        entry.pRecord->GetAttributeValue(L"Module", strModule);
        Add(*entry.pRecord,
            "the rule \"" + ToUtf8(strName) + "\" of module \"" + ToUtf8(strModule) + "\" is not known here");
    }

    void CheckAttributes(const MfxXMLNode& record) {
        for (const wchar_t* pszName : {L"Status", L"LifeStatus", L"Severity"}) {
            CString strValue;
            if (record.GetAttributeValue(pszName, strValue) && !IsInteger(strValue))
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
        std::set<std::int32_t> seen;
        const std::unique_ptr<MfxXMLNodeList> pElements(parent.GetNodeList(kParameterTag));
        for (long i = 0; i < pElements->GetSize(); ++i) {
            const MfxXMLNode& parameter = *(*pElements)[i];
            const std::int32_t nParamId = ParameterIdOf(parameter);
            const CMfxParamStorage* pStorage = FindParameter(params, nParamId);
            if (!pStorage) continue;
            if (!seen.insert(nParamId).second) {
                Add(parameter, "parameter " + std::to_string(nParamId) +
                                   " stands here again; only the first one is read");
                continue;
            }
            CheckKind(parameter, *pStorage);
            CheckValues(parameter, *pStorage);
            CheckDeviations(parameter, *pStorage);
        }
        for (const MfxParamRecord& record : params)
            if (seen.count(record.m_pStorage->m_nParamId) == 0)
                Add(parent, "parameter " + std::to_string(record.m_pStorage->m_nParamId) + " is missing");
    }

    // The material table of older records and the parameter that switches it on.
    void CheckOlderTable(const MfxXMLNode& record) {
        const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kParameterTag));
        for (long i = 0; i < pElements->GetSize(); ++i) {
            const MfxXMLNode& parameter = *(*pElements)[i];
            const std::int32_t nParamId = ParameterIdOf(parameter);
            if (nParamId != kLegacyMaterialTableId && nParamId != kLegacyMaterialSwitchId) continue;
            const std::string description = "parameter " + std::to_string(nParamId) + ", ";
            const std::unique_ptr<MfxXMLNodeList> pValues(parameter.GetNodeList(L"Value"));
            for (long j = 0; j < pValues->GetSize(); ++j) {
                const MfxXMLNode& value = *(*pValues)[j];
                if (nParamId == kLegacyMaterialSwitchId) {
                    CheckReal(value, description + "Value: ");
                    continue;
                }
                for (const wchar_t* pszName : {L"Attribute2", L"Attribute3"}) {
                    CString strLimit;
                    if (!value.GetAttributeValue(pszName, strLimit) || !IsPlainNumber(strLimit))
                        Add(value,
                            description + ToUtf8(pszName) + ": \"" + ToUtf8(strLimit) + "\" is not a number");
                }
            }
        }
    }

    void CheckMassUnit(const RuleDocument::Entry& entry) {
        const CMfxParamStorage* pUnit = entry.pRule->FindParameterInArray(kMassUnitId);
        if (!pUnit || pUnit->GetValues<CString>().IsEmpty()) return;
        const std::string label = ToUtf8(pUnit->GetValues<CString>()[0]);
        if (MassUnitSymbol(label) != label)
            Add(*entry.pRecord,
                Describe(*pUnit, "Value") + "\"" + label + "\" is not a mass unit: mg, g, kg, t, lb");
    }

    // With such an operator or type the rule would not write the parameter, or its values, again.
    void CheckKind(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        if (!storage.IsSaved())
            Add(parameter,
                Describe(storage, "Operator") + "it is missing or says that the parameter is not saved");
        if ((storage.GetType() == TypeTableRow) != (storage.m_paramType == ParamTable))
            Add(parameter, Describe(storage, "ParameterType") + "it does not fit the parameter's values");
    }

    void CheckValues(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        const std::unique_ptr<MfxXMLNodeList> pValues(parameter.GetNodeList(L"Value"));
        if (pValues->GetSize() > 2 && IsUniformLimit(storage))
            Add(parameter, Describe(storage, "Value") + "a limit has one value, or a switch and one value");
        for (long i = 0; i < pValues->GetSize(); ++i) {
            const MfxXMLNode& value = *(*pValues)[i];
            if (storage.GetType() == TypeTableRow)
                CheckCells(value, storage);
            else if (storage.GetType() == TypeDouble)
                CheckReal(value, Describe(storage, "Value"));
        }
    }

    void CheckDeviations(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        const std::unique_ptr<MfxXMLNode> pCriteria(parameter.SelectSingleNode(L"ResultCriteria"));
        if (!pCriteria) return;
        const std::unique_ptr<MfxXMLNodeList> pMaps(pCriteria->GetNodeList(L""));
        for (long i = 0; i < pMaps->GetSize(); ++i) {
            const std::unique_ptr<MfxXMLNodeList> pEntries((*pMaps)[i]->GetNodeList(L""));
            for (long j = 0; j < pEntries->GetSize(); ++j) {
                const std::unique_ptr<MfxXMLNodeList> pValues((*pEntries)[j]->GetNodeList(L"Value"));
                for (long k = 0; k < pValues->GetSize(); ++k)
                    CheckReal(*(*pValues)[k], Describe(storage, ToUtf8((*pMaps)[i]->GetNodeName())));
            }
        }
    }

    void CheckReal(const MfxXMLNode& element, const std::string& description) {
        double value = 0.0;
        if (!IsReal(element.GetNodeValue()) || !ParseReal(element.GetNodeValue(), value) ||
            !std::isfinite(value))
            Add(element, description + "\"" + ToUtf8(element.GetNodeValue()) + "\" is not a number");
    }

    // Tables hold numbers in text form; an empty cell is a value not given. Cells are read up to the first
    // number that is missing, and rows of fewer than four are never converted.
    void CheckCells(const MfxXMLNode& row, const CMfxParamStorage& storage) {
        constexpr std::size_t kFewestCells = 4;
        std::size_t nCells = 0;
        CString strCell;
        while (row.GetAttributeValue(L"Attribute" + FormatInteger(static_cast<std::int64_t>(nCells) + 1),
                                     strCell)) {
            ++nCells;
            if (!strCell.IsEmpty() && !IsPlainNumber(strCell))
                Add(row, Describe(storage, "Attribute" + std::to_string(nCells)) + "\"" + ToUtf8(strCell) +
                             "\" is not a number");
        }
        if (nCells < kFewestCells)
            Add(row,
                Describe(storage, "Value") + "the row has " + Count(nCells, "cell") + " instead of five");
        std::size_t nCellAttributes = 0;
        for (const CString& strName : row.GetAttributeNames())
            nCellAttributes += strName.Left(9) == L"Attribute";
        if (nCellAttributes != nCells)
            Add(row, Describe(storage, "Attribute" + std::to_string(nCells + 1)) +
                         "it is missing, and the cells after it are not read");
    }

    static bool IsPlainNumber(const CString& strText) { return IsNumericText(strText) && IsReal(strText); }

    static bool IsUniformLimit(const CMfxParamStorage& storage) {
        return storage.m_nParamId == kThicknessMinId || storage.m_nParamId == kThicknessMaxId;
    }

    static std::string Describe(const CMfxParamStorage& storage, const std::string& element) {
        return "parameter " + std::to_string(storage.m_nParamId) + ", " + element + ": ";
    }

    const RuleDocument& m_document;
    std::vector<std::string> m_problems;
};

}  // namespace

std::vector<std::string> FindRecordProblems(const RuleDocument& document) {
    return ProblemFinder(document).Find();
}
