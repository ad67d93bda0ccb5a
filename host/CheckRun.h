#pragma once

#include "AcceptedFindings.h"
#include "CheckOutput.h"
#include "ExitCode.h"
#include "FileSelection.h"
#include "RuleModule.h"

#include <memory>
#include <string>

// A check of files, one after the other. It prints what it finds, and knows in the end whether it failed.
class CheckRun {
  public:
    // The module has to outlive it.
    CheckRun(const RuleModule& module, const CheckSeverities& severities, CheckFormat format,
             AcceptedFindings accepted);

    void Add(const SelectedFile& selected);

    // Ends the output. The name is that of the file of accepted findings.
    ExitCode Finish(const std::string& acceptedName);

  private:
    void Read(CheckedFile& file);
    void AddFinding(CheckedFile& file, const CheckedFinding& checked);

    const RuleModule& m_module;
    const CheckSeverities m_severities;
    const std::unique_ptr<CheckOutput> m_output;
    AcceptedFindings m_accepted;
    bool m_isUnreadable = false;
    bool m_isFailed = false;
    std::size_t m_hiddenFailures = 0;
};
