#pragma once

#include "Finding.h"
#include "RuleDocument.h"

#include <string>
#include <string_view>
#include <vector>

constexpr std::size_t CountInserts(FindingCode code) {
    std::size_t count = 0;
    const std::string_view text = KindOf(code).text;
    for (std::size_t at = text.find("{}"); at != text.npos; at = text.find("{}", at + 2)) ++count;
    return count;
}

inline std::string ToInsert(const std::string& text) {
    return text;
}
inline std::string ToInsert(int number) {
    return std::to_string(number);
}

// Adds findings about one subject to a list: the document, one of its rules, or a constraint or parameter of
// a rule.
class Reporter {
  public:
    Reporter(const RuleDocument& document, std::vector<Finding>& findings)
        : m_document(document), m_findings(findings) {}

    // Reporters about other subjects, for the same list.
    Reporter About(const RuleDocument::Entry* entry) const;
    Reporter InConstraint(int constraint) const;  // from 0
    Reporter OfParameter(long paramId) const;
    Reporter InRow(int row) const;  // from 1, of the parameter's values

    // A finding in an element of the subject.
    template <FindingCode Code, class... Inserts>
    void Add(const MfxXMLNode& element, const Inserts&... inserts) const {
        static_assert(sizeof...(Inserts) == CountInserts(Code));
        AddAtLine(Code, m_document.GetLine(element), {ToInsert(inserts)...});
    }

    // A finding about the subject's values.
    template <FindingCode Code, class... Inserts>
    void AddAboutValues(const Inserts&... inserts) const {
        static_assert(sizeof...(Inserts) == CountInserts(Code));
        AddAtValue(Code, {ToInsert(inserts)...});
    }

    const RuleDocument& GetDocument() const { return m_document; }
    const RuleDocument::Entry& GetEntry() const { return *m_entry; }
    const CMfxRule& GetRule() const { return *m_entry->rule; }
    long GetParamId() const { return m_location.paramId; }
    bool IsInConstraint() const { return m_location.constraint >= 0; }

  private:
    Finding& AddAtLine(FindingCode code, int line, std::vector<std::string> inserts) const;
    void AddAtValue(FindingCode code, std::vector<std::string> inserts) const;

    const RuleDocument& m_document;
    std::vector<Finding>& m_findings;
    const RuleDocument::Entry* m_entry = nullptr;
    RecordLocation m_location;
};
