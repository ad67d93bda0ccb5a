// The file of accepted findings, each with the reason. Its schema is docs/accepted-findings.schema.json.
//
//   {"version": 1, "accepted": [
//     {"key": "band-gap", "place": "19040/29183/2", "file": "castings/rules.xml",
//      "reason": "these sizes are not cast"}]}
//
// The place is null for findings outside of rules. An entry with "file" holds for this document alone, whose
// path starts at the folder that the file of accepted findings stands in.
#pragma once

#include <string>
#include <vector>

struct AcceptedFinding {
    std::size_t number = 0;  // of the entry, from 1
    std::string key;         // FindingTable.h
    std::string place;       // empty outside of rules
    std::string file;        // as it is written; empty: every document
    std::string reason;
};

// Throws DocumentError (Unreadable) that begins with the name and tells the place.
std::vector<AcceptedFinding> ReadAcceptedFindings(const std::string& name, const std::string& bytes);
