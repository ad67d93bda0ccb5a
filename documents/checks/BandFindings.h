// Findings that the bands of two rules have in common.
#pragma once

#include "NumberText.h"
#include "Reporter.h"
#include "ValueContent.h"

#include <string>

// A bound with its unit; with ten digits, for of bounds that differ by little both are named.
inline std::string FormatBound(double bound, const std::string& unit) {
    constexpr int kDigits = 10;
    return FormatNumber(bound, kDigits) + " " + unit;
}

// A band that ends at or before its beginning; "band" is what the text calls it.
inline void AddInverted(const Reporter& reporter, int findingRow, int row, const std::string& band,
                        double begin, double end) {
    if (end < begin - kTolerance)
        reporter.AddAboutValues<FindingCode::BandInverted>(findingRow, row, band);
    else
        reporter.AddAboutValues<FindingCode::BandEmpty>(findingRow, row, band);
}

// Where a band begins and where the one before it ends.
struct BandJoint {
    int row = 0, rowBefore = 0;  // from 1
    double begin = 0.0, endBefore = 0.0;
    std::string noun, unit;  // of what the bands are: "sizes", "mm"
};

inline void AddNotContiguous(const Reporter& reporter, int findingRow, const BandJoint& joint) {
    const std::string begin = FormatBound(joint.begin, joint.unit),
                      end = FormatBound(joint.endBefore, joint.unit);
    if (joint.begin > joint.endBefore)
        reporter.AddAboutValues<FindingCode::BandGap>(findingRow, joint.row, begin, joint.rowBefore, end,
                                                      joint.noun);
    else
        reporter.AddAboutValues<FindingCode::BandOverlap>(findingRow, joint.row, begin, joint.rowBefore, end);
}
