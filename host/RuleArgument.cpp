#include "RuleArgument.h"

#include "Text.h"

void AddRuleOption(CLI::App& command, std::string& ruleKey) {
    command
        .add_option("--rule", ruleKey,
                    "Id of the rule: 19010, 19020, 19030 or 19040; 19040#2 is the second of that id")
        ->type_name("ID")
        ->required();
}

const RuleDocument::Entry& RequireRule(const RuleDocument& document, const std::string& ruleKey) {
    std::string keys;
    for (const RuleDocument::Entry& entry : document.GetEntries()) {
        if (!entry.rule) continue;
        if (entry.key == ruleKey) return entry;
        keys += (keys.empty() ? "; its rules are " : ", ") + entry.key;
    }
    throw CommandError(ExitCode::WrongUsage, ToUtf8(document.GetPath()) + " has no rule " + ruleKey + keys);
}
