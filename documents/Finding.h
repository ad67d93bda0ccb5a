#pragma once

#include "FindingTable.h"
#include "RecordLocation.h"

#include <string>
#include <vector>

// Something in a rule document that a user should know.
struct Finding {
    FindingCode code;
    std::vector<std::string> inserts = {};  // of the code's text
    int line = 0;                           // in the document; 0 where none can be named
    int entry = -1;                         // of the document's entries; -1 when it is not about one
    RecordLocation location = {};           // in the entry's record
    std::string place = {};                 // ValueKey.h; of a value or of what is around it; may be empty
    int ruleId = 0;                         // 0 when no rule of the module was recognised
    std::string rule = {};                  // name in the user's language, or as the record says it
    std::string parameter = {};             // its name, where the rule knows it
    std::string constraintName = {};        // of a value in a constraint

    const FindingKind& Kind() const { return KindOf(code); }
};

// The code's text with its inserts, in UTF-8; of a value in a constraint it begins with the constraint's
// name.
std::string FindingText(const Finding& finding);

// "Variable Draft Angle: parameter 29183 (Draft angles by size), ...": the text with what it is about.
std::string DescribeFinding(const Finding& finding);

// Findings of one line keep their order.
void SortByLine(std::vector<Finding>& findings);

// "error", "warning" or "hint".
const char* SeverityName(Severity severity);
