#include "CheckRun.h"

#include "Console.h"
#include "DocumentCheck.h"
#include "FileArguments.h"

#include <utility>

CheckRun::CheckRun(const RuleModule& module, const CheckSeverities& severities, CheckFormat format,
                   AcceptedFindings accepted)
    : m_module(module),
      m_severities(severities),
      m_output(MakeCheckOutput(format, severities)),
      m_accepted(std::move(accepted)) {}

void CheckRun::Add(const SelectedFile& selected) {
    CheckedFile file{.file = selected.path, .unreadable = selected.unreadable};
    if (file.unreadable.empty()) Read(file);
    if (!file.unreadable.empty()) {
        m_isUnreadable = true;
        PrintError("mfxhost: " + Escaped(file.unreadable) + "\n");
    }
    m_output->Add(file);
}

// The document is freed at the end: there may be ten thousand of them.
void CheckRun::Read(CheckedFile& file) {
    try {
        const RuleDocument document = ReadDocument(m_module, file.file);
        file.units = document.GetUnits();
        file.rules = CountRules(document);
        const std::vector<Finding> findings = CheckDocument(document);
        const auto accepted = m_accepted.Match(document.GetPath(), findings);
        for (std::size_t i = 0; i < findings.size(); ++i) AddFinding(file, {findings[i], accepted[i]});
    } catch (const DocumentError& error) {
        if (error.GetKind() != DocumentError::Kind::Unreadable) throw;
        file.unreadable = error.what();
    }
}

void CheckRun::AddFinding(CheckedFile& file, const CheckedFinding& checked) {
    const Severity severity = checked.finding.Kind().severity;
    const bool isFailure = !checked.accepted && m_severities.failing && severity >= *m_severities.failing;
    m_isFailed |= isFailure;
    if (severity >= m_severities.shown)
        file.findings.push_back(checked);
    else if (isFailure)
        ++m_hiddenFailures;
}

ExitCode CheckRun::Finish(const std::string& acceptedName) {
    const auto unmatched = m_accepted.FindUnmatched();
    m_output->Finish(unmatched);
    for (const AcceptedFinding* accepted : unmatched)
        PrintError("mfxhost: " + acceptedName + ": " + Escaped(DescribeUnmatched(*accepted)) + "\n");
    if (m_hiddenFailures)
        PrintError("mfxhost: failing findings that --severity hides: " + std::to_string(m_hiddenFailures) +
                   "\n");
    if (m_isUnreadable) return ExitCode::UnreadableInput;
    return m_isFailed ? ExitCode::Findings : ExitCode::Done;
}
