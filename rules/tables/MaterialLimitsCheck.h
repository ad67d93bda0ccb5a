// The check of a table of wall-thickness limits by material, as its dialog holds it. Needs no windows.
#pragma once

#include <afx.h>

#include <span>
#include <vector>

// Columns of the table.
namespace MaterialColumn {
enum Index { Material, Minimum, Maximum };
}

struct MaterialLimitTexts {
    CString strMaterial;
    CString strMinimum;
    CString strMaximum;
};

// Both limits are in the rule's length unit.
struct MaterialLimits {
    CString strMaterial;
    double minimum = 0.0;
    double maximum = 0.0;

    bool operator==(const MaterialLimits&) const = default;
};

enum class MaterialLimitsFlaw {
    None,
    NoMaterial,           // a row has limits and no material
    NoPositiveNumber,     // a limit is missing, no number, or not above zero
    MinimumAboveMaximum,  // by more than the tolerance
    MaterialTwice,
};

struct MaterialLimitsResult {
    MaterialLimitsFlaw flaw = MaterialLimitsFlaw::None;
    int nRow = 0;  // the first is 1
    MaterialColumn::Index column = MaterialColumn::Material;
    std::vector<MaterialLimits> limits;  // without a flaw; empty rows are left out
};

MaterialLimitsResult CheckMaterialLimits(std::span<const MaterialLimitTexts> rows);

// Reads a text that is a number above zero and nothing else; false for any other.
bool ReadPositiveNumber(const CString& strText, double& value);
