#pragma once

#include "AcceptedFindingsReader.h"
#include "Finding.h"

#include <afx.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

// "entry 3: band-gap at 19040/29183/2 was not found; the entry can be removed".
std::string DescribeUnmatched(const AcceptedFinding& accepted);

// Findings that somebody has looked at and accepted. The format of their file is in AcceptedFindingsReader.h.
class AcceptedFindings {
  public:
    // None.
    AcceptedFindings() = default;

    // From the bytes of a file. Throws DocumentError (Unreadable) that names the line or the entry.
    AcceptedFindings(const CString& path, const std::string& bytes);

    // For each finding of a document, in their order, what accepts it, or null. An entry for this document
    // goes before one for every document.
    std::vector<const AcceptedFinding*> Match(const CString& document, const std::vector<Finding>& findings);

    // Entries that accepted nothing in the documents so far. An entry for another document that exists is
    // left out.
    std::vector<const AcceptedFinding*> FindUnmatched() const;

  private:
    struct Entry {
        AcceptedFinding accepted;
        CString documentPath;    // empty: every document
        bool isChecked = false;  // a document was checked that it could have matched
        bool isMatched = false;
    };

    const AcceptedFinding* Find(const Finding& finding, const CString& documentPath);

    std::vector<Entry> m_entries;
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> m_entriesOfPlace;  // key, place
};
