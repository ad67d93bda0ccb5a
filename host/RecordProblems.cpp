#include "RecordProblems.h"

#include "NumberText.h"
#include "Text.h"
#include "XmlNumber.h"

#include <memory>

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
        }
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

    void CheckConstraints(const RuleDocument::Entry& entry) {
        const std::unique_ptr<MfxXMLNodeList> pElements(entry.pRecord->GetNodeList(L"Constraint"));
        const auto& constraints = entry.pRule->m_constraintArray;
        for (int i = 0; i < pElements->GetSize() && i < constraints.GetCount(); ++i)
            CheckParameters(*(*pElements)[i], constraints[i]->m_paramArray);
    }

    void CheckParameters(const MfxXMLNode& parent, const MfxParamArray& params) {
        const std::unique_ptr<MfxXMLNodeList> pElements(parent.GetNodeList(L"Parameter"));
        for (long i = 0; i < pElements->GetSize(); ++i) {
            CString strType;
            std::int32_t nParamId = 0;
            (*pElements)[i]->GetAttributeValue(L"Type", strType);
            ParseInteger(strType, nParamId);
            if (const CMfxParamStorage* pStorage = FindParameter(params, nParamId))
                CheckValues(*(*pElements)[i], *pStorage);
        }
    }

    void CheckValues(const MfxXMLNode& parameter, const CMfxParamStorage& storage) {
        const std::unique_ptr<MfxXMLNodeList> pValues(parameter.GetNodeList(L"Value"));
        for (long i = 0; i < pValues->GetSize(); ++i) {
            const MfxXMLNode& value = *(*pValues)[i];
            if (storage.m_paramType == ParamTable)
                CheckCells(value, storage);
            else if (storage.GetType() == TypeDouble && !IsReal(value.GetNodeValue()))
                Add(value,
                    Describe(storage, "Value") + "\"" + ToUtf8(value.GetNodeValue()) + "\" is not a number");
        }
    }

    // Tables hold numbers in text form; an empty cell is a value not given.
    void CheckCells(const MfxXMLNode& value, const CMfxParamStorage& storage) {
        CString strCell;
        for (int nCell = 1; value.GetAttributeValue(L"Attribute" + FormatInteger(nCell), strCell); ++nCell)
            if (!strCell.IsEmpty() && !(IsNumericText(strCell) && IsReal(strCell)))
                Add(value, Describe(storage, "Attribute" + std::to_string(nCell)) + "\"" + ToUtf8(strCell) +
                               "\" is not a number");
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
