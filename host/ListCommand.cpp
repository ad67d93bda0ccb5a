#include "Commands.h"
#include "Console.h"
#include "Text.h"
#include "TextTable.h"

namespace {

std::string Joined(const CStringList& texts) {
    std::string joined;
    for (POSITION position = texts.GetHeadPosition(); position;)
        joined += (joined.empty() ? "" : ", ") + ToUtf8(texts.GetNext(position));
    return joined;
}

ExitCode ListRules(const RuleModule& module) {
    Print(ToUtf8(module.GetName()) + "\n" + ToUtf8(module.GetSummary()) + "\n\n");
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    table.Add({"id", "rule", "process", "summary"});
    for (const RulePtr& rule : module.CreateAllRules())
        table.Add({std::to_string(rule->GetRuleId()), ToUtf8(rule->m_strDisplayName),
                   Joined(rule->m_processList), ToUtf8(rule->m_strSummary)});
    Print(table.Format(0));
    return ExitCode::Done;
}

}  // namespace

void AddList(CommandLine& commandLine) {
    commandLine.Add("list", "Print the module's name, summary and rules", {"mfxhost list --lang french"},
                    ListRules);
}
