#include "MaterialLimitsCheck.h"

#include "NumberText.h"

#include <algorithm>

namespace {

bool IsEmptyRow(const MaterialLimitTexts& row) {
    return row.strMaterial.IsEmpty() && row.strMinimum.IsEmpty() && row.strMaximum.IsEmpty();
}

MaterialLimitsResult Flaw(MaterialLimitsFlaw flaw, int nRow, MaterialColumn::Index column) {
    return {flaw, nRow, column, {}};
}

// Its limits, or what is wrong with the row alone.
MaterialLimitsResult ReadRow(const MaterialLimitTexts& row, int nRow) {
    MaterialLimits limits{row.strMaterial};
    if (row.strMaterial.IsEmpty())
        return Flaw(MaterialLimitsFlaw::NoMaterial, nRow, MaterialColumn::Material);
    if (!ReadPositiveNumber(row.strMinimum, limits.minimum))
        return Flaw(MaterialLimitsFlaw::NoPositiveNumber, nRow, MaterialColumn::Minimum);
    if (!ReadPositiveNumber(row.strMaximum, limits.maximum))
        return Flaw(MaterialLimitsFlaw::NoPositiveNumber, nRow, MaterialColumn::Maximum);
    if (limits.minimum > limits.maximum + kTolerance)
        return Flaw(MaterialLimitsFlaw::MinimumAboveMaximum, nRow, MaterialColumn::Maximum);
    return {MaterialLimitsFlaw::None, nRow, MaterialColumn::Material, {limits}};
}

}  // namespace

MaterialLimitsResult CheckMaterialLimits(std::span<const MaterialLimitTexts> rows) {
    MaterialLimitsResult all;
    int nRow = 0;
    for (const MaterialLimitTexts& row : rows) {
        ++nRow;
        if (IsEmptyRow(row)) continue;
        MaterialLimitsResult read = ReadRow(row, nRow);
        if (read.flaw != MaterialLimitsFlaw::None) return read;
        if (std::ranges::find(all.limits, row.strMaterial, &MaterialLimits::strMaterial) != all.limits.end())
            return Flaw(MaterialLimitsFlaw::MaterialTwice, nRow, MaterialColumn::Material);
        all.limits.push_back(read.limits.front());
    }
    return all;
}

bool ReadPositiveNumber(const CString& strText, double& value) {
    const bool bOnePoint = strText.Find(L'.') == strText.ReverseFind(L'.');
    if (!IsNumericText(strText) || !bOnePoint || ParseDouble(strText) <= 0.0) return false;
    value = ParseDouble(strText);
    return true;
}
