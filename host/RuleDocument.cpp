#include "RuleDocument.h"

#include "File.h"
#include "HostError.h"
#include "ParameterXml.h"
#include "RecordUpdate.h"
#include "Text.h"
#include "UnitNames.h"
#include "XmlNumber.h"

#include <utility>

namespace {

constexpr wchar_t kRootTag[] = L"MfxRules";
constexpr wchar_t kRuleTag[] = L"Rule";
constexpr int kVersion = 1;

std::unique_ptr<MfxXMLNode> WriteRecord(CMfxRule& rule) {
    std::unique_ptr<MfxXMLNode> pRecord(rule.BuildXMLNode());
    if (!pRecord)
        throw HostError(ExitCode::Missing, "the rule " + ToUtf8(rule.m_strName) + " could not write itself");
    return pRecord;
}

// The module writes into the document for the life of the scope only.
class WritingScope {
  public:
    WritingScope(const RuleModule& module, MfxXMLDocument& xml) : m_module(module) {
        m_module.SetDocument(&xml);
    }
    ~WritingScope() { m_module.SetDocument(nullptr); }
    WritingScope(const WritingScope&) = delete;
    WritingScope& operator=(const WritingScope&) = delete;

  private:
    const RuleModule& m_module;
};

// Goes down to a child element if it is there.
void Enter(MfxXMLNode& element, const CString& strTag, int nIndex) {
    auto child = element.FindChild(strTag);
    for (int i = 0; child && i < nIndex; ++i) child = child->FindNext(strTag);
    if (child && nIndex >= 0) element = *child;
}

}  // namespace

RuleDocument::RuleDocument() {
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->CreateRootNode(kRootTag));
    pRoot->AddAttribute(L"Version", FormatInteger(kVersion));
    pRoot->AddAttribute(L"Unit", FormatInteger(m_units.m_nLengthUnit));
    pRoot->AddAttribute(L"AngleUnit", FormatInteger(m_units.m_nAngleUnit));
}

RuleDocument::RuleDocument(const CString& strPath, const RuleModule& module) : m_strPath(strPath) {
    const std::string bytes = ReadFileBytes(strPath);
    if (bytes.empty()) Refuse(0, "the file is empty");
    const MfxXmlParseResult parsed = m_pXml->Parse(bytes);
    if (!parsed.bOk)
        Refuse(parsed.nLine, (parsed.nColumn > 1 ? "column " + std::to_string(parsed.nColumn) + ": " : "") +
                                 "can't be read as XML: " + ToUtf8(parsed.strReason));
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    if (pRoot->GetNodeName() != kRootTag)
        Refuse(m_pXml->GetLine(*pRoot), "not a rule document: the outermost element is \"" +
                                            ToUtf8(pRoot->GetNodeName()) + "\", not \"" + ToUtf8(kRootTag) +
                                            "\"");
    ReadUnits(*pRoot);
    ReadRules(*pRoot, module);
}

void RuleDocument::Refuse(int nLine, const std::string& reason) const {
    throw HostError(ExitCode::UnreadableInput, Place(nLine) + reason);
}

std::string RuleDocument::Place(int nLine) const {
    return ToUtf8(m_strPath) + ":" + (nLine ? std::to_string(nLine) + ":" : "") + " ";
}

int RuleDocument::GetLine(const Entry& entry, const RecordPlace& place) const {
    MfxXMLNode element = *entry.pRecord;
    Enter(element, kConstraintTag, place.nConstraint);
    if (const auto pParameter = FindParameterElement(element, static_cast<std::int32_t>(place.nParamId));
        pParameter && place.nParamId != 0) {
        element = *pParameter;
        Enter(element, L"Value", place.nRow - 1);
    }
    return GetLine(element);
}

// A missing attribute means what a fresh document has. One digit and nothing else: rules read no more of it.
void RuleDocument::ReadUnits(const MfxXMLNode& root) {
    const auto read = [&](const CString& strName, int nDefault, auto isKnown, const std::string& known) {
        CString strValue;
        if (!root.GetAttributeValue(strName, strValue)) return nDefault;
        const int nValue = strValue.GetLength() == 1 ? strValue[0] - L'0' : -1;
        if (nValue < 0 || nValue > 9 || !isKnown(nValue))
            Refuse(m_pXml->GetLine(root), ToUtf8(strName) + "=\"" + ToUtf8(strValue) + "\" is not " + known);
        return nValue;
    };
    read(
        L"Version", kVersion, [](int nVersion) { return nVersion == kVersion; },
        "the version that this program reads, " + std::to_string(kVersion));
    m_units.m_nLengthUnit = read(
        L"Unit", m_units.m_nLengthUnit, [](int nUnit) { return !LengthUnitSymbol(nUnit).empty(); },
        "a length unit, 0 to 9");
    m_units.m_nAngleUnit = read(
        L"AngleUnit", m_units.m_nAngleUnit, [](int nUnit) { return !AngleUnitSymbol(nUnit).empty(); },
        "an angle unit, 0 to 3");
}

void RuleDocument::ReadRules(const MfxXMLNode& root, const RuleModule& module) {
    const std::unique_ptr<MfxXMLNodeList> pRecords(root.GetNodeList(kRuleTag));
    for (long i = 0; i < pRecords->GetSize(); ++i) {
        Entry entry;
        entry.pRecord = std::make_unique<MfxXMLNode>(*(*pRecords)[i]);
        entry.nLine = m_pXml->GetLine(*entry.pRecord);
        entry.pRule = MakeRule(*entry.pRecord, module);
        m_entries.push_back(std::move(entry));
        PrintProgress(m_entries.size(), static_cast<std::size_t>(pRecords->GetSize()), "rule");
    }
}

RulePtr RuleDocument::MakeRule(MfxXMLNode& record, const RuleModule& module) const {
    RulePtr pRule = module.CreateRule(record);
    if (pRule) {
        pRule->m_nLengthUnit = m_units.m_nLengthUnit;
        pRule->m_nAngleUnit = m_units.m_nAngleUnit;
    }
    return pRule;
}

std::vector<MfxXMLNode> RuleDocument::FindNestedRules() const {
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    std::vector<MfxXMLNode> rules = pRoot->FindDescendants(kRuleTag);
    std::erase_if(rules, [&](const MfxXMLNode& rule) {
        return *std::unique_ptr<MfxXMLNode>(rule.GetParentNode()) == *pRoot;
    });
    return rules;
}

const RuleDocument::Entry* RuleDocument::FindEntry(const MfxXMLNode& element) const {
    for (auto pAncestor = std::make_unique<MfxXMLNode>(element); pAncestor;
         pAncestor.reset(pAncestor->GetParentNode()))
        for (const Entry& entry : m_entries)
            if (*entry.pRecord == *pAncestor) return &entry;
    return nullptr;
}

void RuleDocument::Append(RulePtr pRule, const RuleModule& module) {
    const WritingScope writing(module, *m_pXml);
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    Entry entry;
    entry.pRecord = WriteRecord(*pRule);
    entry.pRule = std::move(pRule);
    pRoot->AppendNode(entry.pRecord.get());
    m_entries.push_back(std::move(entry));
}

void RuleDocument::ConvertUnits(const UnitPair& units, const RuleModule& module) {
    const WritingScope writing(module, *m_pXml);
    const UnitPair from = std::exchange(m_units, units);
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    pRoot->AddAttribute(L"Unit", FormatInteger(units.m_nLengthUnit));
    pRoot->AddAttribute(L"AngleUnit", FormatInteger(units.m_nAngleUnit));
    for (Entry& entry : m_entries) {
        if (!entry.pRule) continue;
        entry.pRule->ConvertUnits(from, units);
        const std::unique_ptr<MfxXMLNode> pRecord = WriteRecord(*entry.pRule);
        UpdateRecord(*entry.pRecord, *pRecord);
        entry.pRule = MakeRule(*entry.pRecord, module);
    }
}

bool RuleDocument::ConfigureRule(const Entry& entry, const RuleModule& module) {
    const WritingScope writing(module, *m_pXml);
    CMfxRule& rule = *entry.pRule;
    const auto update = [&] {
        UpdateRecord(*entry.pRecord, *WriteRecord(rule));
        return m_pXml->ToUtf8();
    };
    const std::string before = update();
    rule.ConfigureRuleDialog();
    const UnitPair chosen{rule.m_nLengthUnit, rule.m_nAngleUnit};
    if (!(chosen == m_units)) rule.ConvertUnits(chosen, m_units);
    return update() != before;
}

void RuleDocument::Save(const CString& strPath) const {
    ReplaceFileBytes(strPath, m_pXml->ToUtf8());
}
