// Findings that the bands of two rules have in common.
#pragma once

#include "NumberText.h"
#include "Reporter.h"
#include "ValueContent.h"

#include <string>

// A bound with its unit.
inline std::string FormatBound(double bound, const std::string& unit) {
    return FormatNumber(bound, kComparedDigits) + " " + unit;
}

// A band that ends at or before its beginning; "band" is what the text calls it.
inline void AddInverted(const Reporter& reporter, int row, const std::string& band, double begin,
                        double end) {
    if (end < begin - kTolerance)
        reporter.AddAboutValues<FindingCode::BandInverted>(row, band);
    else
        reporter.AddAboutValues<FindingCode::BandEmpty>(row, band);
}

// Where a band begins and where the one before it ends.
struct BandJoint {
    int row = 0, rowBefore = 0;  // from 1
    double begin = 0.0, endBefore = 0.0;
    std::string noun, unit;  // what the bands are made of, "sizes", and its unit, "mm"
};

inline void AddNotContiguous(const Reporter& reporter, const BandJoint& joint) {
    const std::string begin = FormatBound(joint.begin, joint.unit),
                      end = FormatBound(joint.endBefore, joint.unit);
    if (joint.begin > joint.endBefore)
        reporter.AddAboutValues<FindingCode::BandGap>(joint.row, begin, joint.rowBefore, end, joint.noun);
    else
        reporter.AddAboutValues<FindingCode::BandOverlap>(joint.row, begin, joint.rowBefore, end);
}
