#pragma once

#include <string>
#include <vector>

enum class Severity { Hint, Warning, Error };

// Something in a rule document that a user should know.
struct Finding {
    Severity severity = Severity::Error;
    int nLine = 0;          // in the document; 0 where no place can be named
    int nEntry = -1;        // of the document's entries; -1 when it is not about one
    int nConstraint = -1;   // from 0; -1 when it is not about one
    int nRuleId = 0;        // 0 when no rule of the module was recognised
    std::string rule;       // name in the user's language, or as the record says it
    long nParamId = 0;      // 0 when it is not about one parameter
    std::string parameter;  // its name, where the rule knows it
    std::string text;       // a plain sentence, in UTF-8
    bool bUnread = false;   // the module passes over it: a converted record would lose or misstate it
};

// "Variable Draft Angle: parameter 29183 (Draft angles by size), ...", ready to print, without the place,
// which the document knows.
std::string FormatFinding(const Finding& finding);

// Findings of one line keep their order.
void SortByLine(std::vector<Finding>& findings);

// "error", "warning" or "hint".
std::string SeverityName(Severity severity);
