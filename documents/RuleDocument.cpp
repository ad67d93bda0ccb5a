#include "RuleDocument.h"

#include "DocumentError.h"
#include "EditError.h"
#include "ParameterXml.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "Text.h"
#include "Units.h"
#include "XmlNumber.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kVersion = 1;

std::unique_ptr<MfxXMLNode> WriteRecord(CMfxRule& rule) {
    std::unique_ptr<MfxXMLNode> record(rule.BuildXMLNode());
    if (!record)
        throw DocumentError(DocumentError::Kind::RuleNotWritten,
                            "the rule " + ToUtf8(rule.m_strName) + " could not write itself");
    return record;
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

// The child element with that tag and index, counted from 0, or the nearest one before it; the element itself
// when it has none.
MfxXMLNode ChildOrSelf(const MfxXMLNode& element, const CString& tag, int index) {
    auto child = element.FindChild(tag);
    for (int i = 0; child && i < index; ++i) child = child->FindNext(tag);
    return child && index >= 0 ? *child : element;
}

std::vector<bool> StatusOfConstraints(const CMfxRule& rule) {
    std::vector<bool> status;
    for (const CMFXConstraint* constraint : rule.m_constraintArray) status.push_back(constraint->m_bActive);
    return status;
}

void WriteUnits(MfxXMLNode& root, const UnitPair& units) {
    root.AddAttribute(kUnitAttribute, FormatInteger(units.m_nLengthUnit));
    root.AddAttribute(kAngleUnitAttribute, FormatInteger(units.m_nAngleUnit));
}

}  // namespace

RuleDocument::RuleDocument(const RuleModule& module) : m_module(module) {
    const std::unique_ptr<MfxXMLNode> root(m_pXml->CreateRootNode(kDocumentTag));
    root->AddAttribute(kVersionAttribute, FormatInteger(kVersion));
    WriteUnits(*root, m_units);
}

RuleDocument::RuleDocument(const RuleModule& module, const CString& path, const ReadingProgress& progress)
    : m_module(module), m_strPath(path) {
    const std::string bytes = ReadFileBytes(path);
    m_source = FingerprintOf(bytes);
    Read(bytes, progress);
}

RuleDocument::RuleDocument(const RuleModule& module, const CString& name, const std::string& bytes,
                           const ReadingProgress& progress)
    : m_module(module), m_strPath(name) {
    Read(bytes, progress);
}

void RuleDocument::Read(const std::string& bytes, const ReadingProgress& progress) {
    Parse(bytes);
    const MfxXMLNode root = GetRoot();
    ReadVersion(root);
    ReadUnits(root);
    ReadRules(root, progress);
}

void RuleDocument::Refuse(int line, const std::string& reason) const {
    throw DocumentError(DocumentError::Kind::Unreadable, LinePrefix(m_strPath, line) + reason);
}

void RuleDocument::Parse(const std::string& bytes) {
    if (bytes.empty()) Refuse(0, "the file is empty");
    const MfxXmlParseResult parsed = m_pXml->Parse(bytes);
    const std::string column = parsed.nColumn > 1 ? "column " + std::to_string(parsed.nColumn) + ": " : "";
    if (!parsed.bOk) Refuse(parsed.nLine, column + "can't be read as XML: " + ::ToUtf8(parsed.strReason));
    const MfxXMLNode root = GetRoot();
    if (root.GetNodeName() != kDocumentTag)
        Refuse(GetLine(root), "not a rule document: the outermost element is " + Quoted(root.GetNodeName()) +
                                  ", not " + Quoted(kDocumentTag));
}

void RuleDocument::ReadVersion(const MfxXMLNode& root) const {
    ReadDigit(
        root, kVersionAttribute, [](int version) { return version == kVersion; },
        "the version that this program reads, " + std::to_string(kVersion));
}

// A missing unit means what a fresh document has.
void RuleDocument::ReadUnits(const MfxXMLNode& root) {
    const auto isLength = [](int unit) { return !LengthUnitSymbol(unit).empty(); };
    const auto isAngle = [](int unit) { return !AngleUnitSymbol(unit).empty(); };
    const auto length = ReadDigit(root, kUnitAttribute, isLength, "a length unit, 0 to 9");
    const auto angle = ReadDigit(root, kAngleUnitAttribute, isAngle, "an angle unit, 0 to 3");
    m_units.m_nLengthUnit = length.value_or(m_units.m_nLengthUnit);
    m_units.m_nAngleUnit = angle.value_or(m_units.m_nAngleUnit);
}

// Nothing when the attribute is missing. One digit and nothing else: rules read no more of it.
std::optional<int> RuleDocument::ReadDigit(const MfxXMLNode& root, const CString& attribute,
                                           const std::function<bool(int)>& isKnown,
                                           const std::string& known) const {
    CString text;
    if (!root.GetAttributeValue(attribute, text)) return std::nullopt;
    const int digit = text.GetLength() == 1 ? text[0] - L'0' : -1;
    if (digit < 0 || digit > 9 || !isKnown(digit))
        Refuse(GetLine(root), ::ToUtf8(attribute) + "=" + Quoted(text) + " is not " + known);
    return digit;
}

void RuleDocument::ReadRules(const MfxXMLNode& root, const ReadingProgress& progress) {
    const std::unique_ptr<MfxXMLNodeList> records(root.GetNodeList(kRuleTag));
    const auto total = static_cast<std::size_t>(records->GetSize());
    for (long i = 0; i < records->GetSize(); ++i) {
        Entry entry;
        entry.record = std::make_unique<MfxXMLNode>(*(*records)[i]);
        entry.line = GetLine(*entry.record);
        entry.rule = MakeRule(*entry.record);
        Add(std::move(entry));
        if (progress) progress(m_entries.size(), total);
    }
}

void RuleDocument::Add(Entry entry) {
    entry.key = m_keys.Next(entry.rule ? std::to_string(entry.rule->GetRuleId())
                                       : KeyOfName(::ToUtf8(entry.record->GetAttribute(kNameAttribute))));
    m_entryOfRecord.emplace(*entry.record, m_entries.size());
    m_entries.push_back(std::move(entry));
}

RulePtr RuleDocument::MakeRule(MfxXMLNode& record) const {
    RulePtr rule = m_module.CreateRule(record);
    if (rule) {
        rule->m_nLengthUnit = m_units.m_nLengthUnit;
        rule->m_nAngleUnit = m_units.m_nAngleUnit;
    }
    return rule;
}

int RuleDocument::GetLine(const Entry& entry, const RecordLocation& location) const {
    MfxXMLNode element = ChildOrSelf(*entry.record, kConstraintTag, location.constraint);
    const auto parameter = location.paramId
                               ? FindParameterElement(element, static_cast<std::int32_t>(location.paramId))
                               : nullptr;
    if (parameter) element = ChildOrSelf(*parameter, kValueTag, location.row - 1);
    return GetLine(element);
}

std::vector<MfxXMLNode> RuleDocument::FindNestedRules() const {
    const MfxXMLNode root = GetRoot();
    std::vector<MfxXMLNode> rules = root.FindDescendants(kRuleTag);
    std::erase_if(rules, [&](const MfxXMLNode& rule) {
        return *std::unique_ptr<MfxXMLNode>(rule.GetParentNode()) == root;
    });
    return rules;
}

const RuleDocument::Entry* RuleDocument::FindEntry(const MfxXMLNode& element) const {
    for (auto ancestor = std::make_unique<MfxXMLNode>(element); ancestor;
         ancestor.reset(ancestor->GetParentNode()))
        if (const auto found = m_entryOfRecord.find(*ancestor); found != m_entryOfRecord.end())
            return &m_entries[found->second];
    return nullptr;
}

void RuleDocument::Append(RulePtr rule) {
    const WritingScope writing(m_module, *m_pXml);
    Entry entry;
    entry.record = WriteRecord(*rule);
    entry.rule = std::move(rule);
    GetRoot().AppendNode(entry.record.get());
    Add(std::move(entry));
}

RuleDocument::Entry RuleDocument::MakeEntry(const std::string& xml) {
    MfxXMLDocument parsed;
    if (!parsed.Parse(xml).bOk ||
        std::unique_ptr<MfxXMLNode>(parsed.GetRootNode())->GetNodeName() != kRuleTag)
        throw EditError("a record is no XML of a rule");
    Entry entry;
    entry.record.reset(parsed.GetRootNode());
    GetRoot().AppendNode(entry.record.get());
    entry.rule = MakeRule(*entry.record);
    return entry;
}

void RuleDocument::AppendRecord(const std::string& xml) {
    Add(MakeEntry(xml));
}

void RuleDocument::ReplaceRecord(const Entry& entry, const std::string& xml) {
    Entry& old = m_entries[static_cast<std::size_t>(&entry - m_entries.data())];
    Entry updated = MakeEntry(xml);
    MfxXMLNode root = GetRoot();
    root.InsertAfter(updated.record.get(), old.record.get());
    m_entryOfRecord.erase(*old.record);
    m_entryOfRecord.emplace(*updated.record, &old - m_entries.data());
    root.RemoveNode(*old.record);
    updated.key = old.key;
    old = std::move(updated);
}

void RuleDocument::Remove(const Entry& entry) {
    GetRoot().RemoveNode(*entry.record);
    std::vector<Entry> entries = std::exchange(m_entries, {});
    entries.erase(entries.begin() + (&entry - entries.data()));
    m_entryOfRecord.clear();
    m_keys = KeyCounter();
    for (Entry& other : entries) Add(std::move(other));
}

void RuleDocument::UpdateRecordOf(const Entry& entry, ConstraintStatus status) const {
    UpdateRecord(*entry.record, *WriteRecord(*entry.rule), status);
}

void RuleDocument::ConvertUnits(const UnitPair& units) {
    const WritingScope writing(m_module, *m_pXml);
    const UnitPair from = std::exchange(m_units, units);
    MfxXMLNode root = GetRoot();
    WriteUnits(root, units);
    for (Entry& entry : m_entries) {
        if (!entry.rule) continue;
        entry.rule->ConvertUnits(from, units);
        UpdateRecordOf(entry, ConstraintStatus::OfRecord);
        entry.rule = MakeRule(*entry.record);
    }
}

void RuleDocument::StoreRule(const Entry& entry) {
    const WritingScope writing(m_module, *m_pXml);
    UpdateRecordOf(entry, ConstraintStatus::OfRule);
    UpdateRecordOf(entry, ConstraintStatus::OfRule);  // writing a record brings the rule's summary up to date
}

void RuleDocument::AddConstraints(const Entry& entry, const std::vector<CString>& names) {
    StoreRule(entry);
    for (const CString& name : names) {
        const std::unique_ptr<MfxXMLNode> element(m_pXml->CreateNode(kConstraintTag));
        element->AddAttribute(kTypeAttribute, FormatInteger(ConstraintByMaterial));
        element->AddAttribute(kConstraintNameAttribute, name);
        element->AddAttribute(kStatusAttribute, L"1");
        entry.record->AppendNode(element.get());
    }
    m_entries[static_cast<std::size_t>(&entry - m_entries.data())].rule = MakeRule(*entry.record);
    const auto& constraints = entry.rule->m_constraintArray;
    for (int i = constraints.GetCount() - static_cast<int>(names.size()); i < constraints.GetCount(); ++i)
        for (const MfxParamRecord& record : constraints[i]->m_paramArray)
            if (!IsBandParameter(record.m_pStorage->m_nParamId))
                record.m_pStorage->GetValues<double>().SetFirst(0.0);
}

bool RuleDocument::ConfigureRule(const Entry& entry) {
    const WritingScope writing(m_module, *m_pXml);
    CMfxRule& rule = *entry.rule;
    UpdateRecordOf(entry, ConstraintStatus::OfRecord);
    const std::string before = ToUtf8();
    const std::vector<bool> statusBefore = StatusOfConstraints(rule);
    rule.ConfigureRuleDialog();
    const UnitPair chosen{rule.m_nLengthUnit, rule.m_nAngleUnit};
    if (!(chosen == m_units)) rule.ConvertUnits(chosen, m_units);
    UpdateRecordOf(entry, ConstraintStatus::OfRecord);
    if (ToUtf8() == before && StatusOfConstraints(rule) == statusBefore) return false;
    UpdateRecordOf(entry, ConstraintStatus::OfRule);  // the dialog has set it
    return ToUtf8() != before;
}

void RuleDocument::Save(const CString& path) {
    const std::string bytes = ToUtf8();
    const bool isSource = m_source && IsSamePath(path, m_strPath);
    ReplaceFileBytes(path, bytes, isSource ? &*m_source : nullptr);
    m_strPath = path;
    m_source = FingerprintOf(bytes);
}

const RuleDocument::Entry* RuleDocument::FindRule(int ruleId) const {
    const auto found = std::ranges::find_if(
        m_entries, [=](const Entry& entry) { return entry.rule && entry.rule->GetRuleId() == ruleId; });
    return found != m_entries.end() ? &*found : nullptr;
}

const RuleDocument::Entry* RuleDocument::FindEntry(const std::string& ruleKey) const {
    const auto found = std::ranges::find(m_entries, ruleKey, &Entry::key);
    return found != m_entries.end() ? &*found : nullptr;
}
