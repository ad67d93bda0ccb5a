#pragma once

#include "DocumentFile.h"
#include "MfxTypes.h"
#include "MfxXMLDocument.h"
#include "RecordLocation.h"
#include "RecordUpdate.h"
#include "RuleModule.h"
#include "ValueKey.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// Told how many of the document's rules have been read.
using ReadingProgress = std::function<void(std::size_t done, std::size_t total)>;

// A rule document: the rules that a company saved, of this and of other modules.
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <MfxRules Version="1" Unit="1" AngleUnit="0">     unit codes of every rule: framework/MFXUnitConvertor.h
//     <Rule .../>                                     module/application/RuleRecord.h
//   </MfxRules>
//
// Whatever is not understood stays as it was. The module has to outlive the document.
class RuleDocument {
  public:
    // One "Rule" element and the rule made of it.
    struct Entry {
        std::unique_ptr<MfxXMLNode> record;
        RulePtr rule;  // null when no rule of the module was recognised
        int line = 0;
        std::string key = {};  // ValueKey.h
    };

    // A document without rules, in millimetres and degrees.
    explicit RuleDocument(const RuleModule& module);

    // Reads a document and makes its rules. Throws DocumentError (Unreadable) that names file, line and
    // reason.
    RuleDocument(const RuleModule& module, const CString& path, const ReadingProgress& progress = {});

    // The same from the bytes of a document; messages call it by the name.
    RuleDocument(const RuleModule& module, const CString& name, const std::string& bytes,
                 const ReadingProgress& progress = {});

    // Path or name.
    const CString& GetPath() const { return m_strPath; }
    UnitPair GetUnits() const { return m_units; }
    const std::vector<Entry>& GetEntries() const { return m_entries; }
    const RuleModule& GetModule() const { return m_module; }

    // Appends the record of a rule, which the document takes over.
    void Append(RulePtr rule);

    // Converts every rule to other units and brings its record up to date. Each rule is then read again from
    // its record. Conversion.h does so with its checks. After an exception the document is of no use.
    void ConvertUnits(const UnitPair& units);

    // Appends the record that the XML says, or puts it in the place of another one. Throws EditError when it
    // is no XML of a record.
    void AppendRecord(const std::string& xml);
    void ReplaceRecord(const Entry& entry, const std::string& xml);

    // The other entries move up and may get other keys.
    void Remove(const Entry& entry);

    // Runs the dialog of one of the document's rules, then brings the rule back to the document's units and
    // its record up to date. Whether anything changed.
    bool ConfigureRule(const Entry& entry);

    // Brings the record of a rule up to date after its values were changed.
    void StoreRule(const Entry& entry);

    // Stores the rule, gives it active constraints of these names without values, and makes it again.
    void AddConstraints(const Entry& entry, const std::vector<CString>& names);

    // Line of the element's start tag, from 1; 0 for an element that was created later.
    int GetLine(const MfxXMLNode& element) const { return m_pXml->GetLine(element); }

    // Line of a value, or of the nearest element around it.
    int GetLine(const Entry& entry, const RecordLocation& location) const;

    MfxXMLNode GetRoot() const { return *std::unique_ptr<MfxXMLNode>(m_pXml->GetRootNode()); }
    std::vector<MfxXmlFlaw> FindFlaws() const { return m_pXml->FindFlaws(); }

    // "Rule" elements that stand deeper than the rules of the document, where nothing reads them.
    std::vector<MfxXMLNode> FindNestedRules() const;

    // The first rule with that id, or null.
    const Entry* FindRule(int ruleId) const;

    // The entry of a rule's key, or null.
    const Entry* FindEntry(const std::string& ruleKey) const;

    // The entry in whose record the element stands, or null.
    const Entry* FindEntry(const MfxXMLNode& element) const;

    // Replaces a file by the document, or creates it; from then on it is the document's file. Throws
    // DocumentError: Unwritable when the file can't be written, ChangedMeanwhile when it is the document's
    // file and another program has changed it.
    void Save(const CString& path);

    std::string ToUtf8() const { return m_pXml->ToUtf8(); }

  private:
    [[noreturn]] void Refuse(int line, const std::string& reason) const;
    void Read(const std::string& bytes, const ReadingProgress& progress);
    void Parse(const std::string& bytes);
    void ReadVersion(const MfxXMLNode& root) const;
    void ReadUnits(const MfxXMLNode& root);
    std::optional<int> ReadDigit(const MfxXMLNode& root, const CString& attribute,
                                 const std::function<bool(int)>& isKnown, const std::string& known) const;
    void ReadRules(const MfxXMLNode& root, const ReadingProgress& progress);
    void Add(Entry entry);
    Entry MakeEntry(const std::string& xml);
    RulePtr MakeRule(MfxXMLNode& record) const;
    void UpdateRecordOf(const Entry& entry, ConstraintStatus status) const;

    const RuleModule& m_module;
    CString m_strPath;
    std::optional<FileFingerprint> m_source;  // of the file that the document was read from
    std::unique_ptr<MfxXMLDocument> m_pXml = std::make_unique<MfxXMLDocument>();
    UnitPair m_units;
    std::vector<Entry> m_entries;
    std::map<MfxXMLNode, std::size_t> m_entryOfRecord;
    KeyCounter m_keys;
};
