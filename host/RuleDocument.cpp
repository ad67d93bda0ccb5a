#include "RuleDocument.h"

#include "File.h"
#include "HostError.h"
#include "NumberText.h"
#include "Text.h"
#include "UnitNames.h"
#include "XmlNumber.h"

namespace {

constexpr wchar_t kRootTag[] = L"MfxRules";
constexpr wchar_t kVersion[] = L"1";

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

}  // namespace

RuleDocument::RuleDocument() {
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->CreateRootNode(kRootTag));
    pRoot->AddAttribute(L"Version", kVersion);
    pRoot->AddAttribute(L"Unit", FormatInteger(m_units.m_nLengthUnit));
    pRoot->AddAttribute(L"AngleUnit", FormatInteger(m_units.m_nAngleUnit));
}

RuleDocument::RuleDocument(const CString& strPath, const RuleModule& module) : m_strPath(strPath) {
    const MfxXmlParseResult parsed = m_pXml->Parse(ReadFileBytes(strPath));
    if (!parsed.bOk)
        throw HostError(ExitCode::UnreadableInput,
                        Place(parsed.nLine) +
                            (parsed.nLine ? "column " + std::to_string(parsed.nColumn) + ": " : "") +
                            "not a well-formed XML document: " + ToUtf8(parsed.strReason));
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    if (pRoot->GetNodeName() != kRootTag)
        throw HostError(ExitCode::UnreadableInput,
                        Place(m_pXml->GetLine(*pRoot)) + "not a rule document: the outermost element is \"" +
                            ToUtf8(pRoot->GetNodeName()) + "\", not \"" + ToUtf8(kRootTag) + "\"");
    ReadUnits(*pRoot);
    ReadRules(*pRoot, module);
}

std::string RuleDocument::Place(int nLine) const {
    return ToUtf8(m_strPath) + ":" + (nLine ? std::to_string(nLine) + ":" : "") + " ";
}

// A missing attribute means what a fresh document has.
void RuleDocument::ReadUnits(const MfxXMLNode& root) {
    const auto fail = [&](const char* attribute, const CString& strValue) {
        throw HostError(ExitCode::UnreadableInput, Place(m_pXml->GetLine(root)) + attribute + "=\"" +
                                                       ToUtf8(strValue) +
                                                       "\" is nothing this program can read");
    };
    CString strVersion = kVersion;
    root.GetAttributeValue(L"Version", strVersion);
    if (strVersion != kVersion) fail("Version", strVersion);

    CString strUnit = FormatInteger(m_units.m_nLengthUnit),
            strAngleUnit = FormatInteger(m_units.m_nAngleUnit);
    root.GetAttributeValue(L"Unit", strUnit);
    root.GetAttributeValue(L"AngleUnit", strAngleUnit);
    m_units = {-1, -1};
    if (IsNumericText(strUnit)) ParseInteger(strUnit, m_units.m_nLengthUnit);
    if (IsNumericText(strAngleUnit)) ParseInteger(strAngleUnit, m_units.m_nAngleUnit);
    if (LengthUnitSymbol(m_units.m_nLengthUnit).empty()) fail("Unit", strUnit);
    if (AngleUnitSymbol(m_units.m_nAngleUnit).empty()) fail("AngleUnit", strAngleUnit);
}

void RuleDocument::ReadRules(const MfxXMLNode& root, const RuleModule& module) {
    const std::unique_ptr<MfxXMLNodeList> pRecords(root.GetNodeList(L"Rule"));
    for (long i = 0; i < pRecords->GetSize(); ++i) {
        Entry entry;
        entry.pRecord = std::make_unique<MfxXMLNode>(*(*pRecords)[i]);
        entry.nLine = m_pXml->GetLine(*entry.pRecord);
        entry.pRule = module.CreateRule(*entry.pRecord);
        if (entry.pRule) {
            entry.pRule->m_nLengthUnit = m_units.m_nLengthUnit;
            entry.pRule->m_nAngleUnit = m_units.m_nAngleUnit;
        }
        m_entries.push_back(std::move(entry));
    }
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
    for (const Entry& entry : m_entries) {
        if (!entry.pRule) continue;
        entry.pRule->ConvertUnits(m_units, units);
        const std::unique_ptr<MfxXMLNode> pRecord = WriteRecord(*entry.pRule);
        entry.pRecord->ReplaceWith(pRecord.get());
    }
    m_units = units;
    const std::unique_ptr<MfxXMLNode> pRoot(m_pXml->GetRootNode());
    pRoot->AddAttribute(L"Unit", FormatInteger(units.m_nLengthUnit));
    pRoot->AddAttribute(L"AngleUnit", FormatInteger(units.m_nAngleUnit));
}

void RuleDocument::Save(const CString& strPath) const {
    ReplaceFileBytes(strPath, m_pXml->ToUtf8());
}
