#pragma once

#include "MfxTypes.h"
#include "MfxXMLDocument.h"
#include "RuleModule.h"

#include <memory>
#include <string>
#include <vector>

// Where in a rule's record a value stands, as far as it is known.
struct RecordPlace {
    int nConstraint = -1;  // from 0; -1 in the rule itself
    long nParamId = 0;
    int nRow = 0;  // from 1, of the parameter's values
};

// A rule document: the rules that a company saved, of this and of other modules.
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <MfxRules Version="1" Unit="1" AngleUnit="0">     unit codes of every rule: framework/MFXUnitConvertor.h
//     <Rule .../>                                     module/RuleRecord.h
//   </MfxRules>
//
// What the host does not understand stays as it was.
class RuleDocument {
  public:
    // One "Rule" element and the rule made of it.
    struct Entry {
        std::unique_ptr<MfxXMLNode> pRecord;
        RulePtr pRule;  // null when no rule of the module was recognised
        int nLine = 0;
    };

    // An empty document, in millimetres and degrees.
    RuleDocument();

    // Reads a document and makes its rules. Throws HostError (UnreadableInput) that names file, line and
    // reason.
    RuleDocument(const CString& strPath, const RuleModule& module);

    UnitPair GetUnits() const { return m_units; }
    const std::vector<Entry>& GetEntries() const { return m_entries; }

    // Appends the record of a rule, which the document takes over.
    void Append(RulePtr pRule, const RuleModule& module);

    // Converts every rule to other units and brings its record up to date; the rule then is what the record
    // says.
    void ConvertUnits(const UnitPair& units, const RuleModule& module);

    // Runs the dialog of one of the document's rules, then brings the rule back to the document's units and
    // its record up to date. Whether anything changed.
    bool ConfigureRule(const Entry& entry, const RuleModule& module);

    // "file:line: ", the line only where it is known.
    std::string Place(int nLine) const;
    int GetLine(const MfxXMLNode& element) const { return m_pXml->GetLine(element); }

    // Line of the element that stands there, or of the nearest one around it.
    int GetLine(const Entry& entry, const RecordPlace& place) const;

    std::vector<MfxXmlFlaw> FindFlaws() const { return m_pXml->FindFlaws(); }

    // "Rule" elements that stand deeper than the rules of the document, where nothing reads them.
    std::vector<MfxXMLNode> FindNestedRules() const;

    // The rule in whose record the element stands, or null.
    const Entry* FindEntry(const MfxXMLNode& element) const;

    // Throws HostError (Missing) when the file can't be written.
    void Save(const CString& strPath) const;

  private:
    [[noreturn]] void Refuse(int nLine, const std::string& reason) const;
    void ReadUnits(const MfxXMLNode& root);
    void ReadRules(const MfxXMLNode& root, const RuleModule& module);
    RulePtr MakeRule(MfxXMLNode& record, const RuleModule& module) const;

    CString m_strPath;
    std::unique_ptr<MfxXMLDocument> m_pXml = std::make_unique<MfxXMLDocument>();
    UnitPair m_units;
    std::vector<Entry> m_entries;
};
