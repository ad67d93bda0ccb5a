// What check prints, file by file, in the formats that it has.
#pragma once

#include "AcceptedFindings.h"
#include "Finding.h"
#include "Units.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

enum class CheckFormat { Text, Json, Sarif };

struct CheckedFinding {
    Finding finding;
    const AcceptedFinding* accepted;  // null unless somebody has accepted it
};

struct CheckedFile {
    std::string file;
    std::string unreadable = {};  // why it could not be read; empty when it could
    UnitPair units = {};
    std::size_t rules = 0;  // that were checked
    std::vector<CheckedFinding> findings = {};
};

struct CheckSeverities {
    Severity shown = Severity::Hint;  // the least that is shown
    std::optional<Severity> failing =
        Severity::Warning;  // the least that fails the check; none: nothing does
};

inline constexpr char kNever[] = "never";

// "hint", "warning" or "error"; kNever when nothing fails the check.
std::string FailingName(const CheckSeverities& severities);

class CheckOutput {
  public:
    virtual ~CheckOutput() = default;

    // A file, which was checked or could not be read.
    virtual void Add(const CheckedFile& file) = 0;

    // Ends the output, with accepted findings that were not found any more.
    virtual void Finish(const std::vector<const AcceptedFinding*>& unmatched) = 0;
};

std::unique_ptr<CheckOutput> MakeCheckOutput(CheckFormat format, const CheckSeverities& severities);
