#pragma once

#include <string>
#include <vector>

enum class Severity { Hint, Warning, Error };

// Something in a rule document that a user should know.
struct Finding {
    Severity severity = Severity::Error;
    int nLine = 0;         // in the document; 0 where no place can be named
    int nRuleId = 0;       // 0 when no rule of the module was recognised
    std::string rule;      // name in the user's language, or as the record says it
    long nParamId = 0;     // 0 when it is not about one parameter
    std::string text;      // a plain sentence, in UTF-8
    bool bUnread = false;  // the module passes over it: a converted record would lose or misstate it
};

// "parameter 29183, ..." without the place, which the document knows.
std::string FormatFinding(const Finding& finding);

// "error", "warning" or "hint".
std::string SeverityName(Severity severity);
