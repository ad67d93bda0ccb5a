#include "SizeAndWeightGroups.h"

#include "MFXUnitConvertor.h"
#include "MassUnits.h"
#include "NumberText.h"
#include "RuleConstraints.h"
#include "RuleParameters.h"
#include "WTBasedOnCastSizeAndWeightRule.h"

#include <algorithm>

namespace {

using Bands = SizeAndWeightGroups::Bands;

CString TextOf(double value) {
    return IsGiven(value) ? FormatDouble(value) : CString();
}

bool HasLowerBound(const CastSizeAndWeightBand& band) {
    return IsGiven(band.sizeMin) || IsGiven(band.weightMin);
}

// Rows without a lower bound are no bands.
std::vector<NumberedBand> NumberRows(const Bands& rows) {
    std::vector<NumberedBand> bands;
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (HasLowerBound(rows[row])) bands.push_back({static_cast<int>(row) + 1, rows[row]});
    return bands;
}

// The check itself calls an empty group a flaw. The dialog lists all empty groups at once instead, on OK.
SizeAndWeightResult CheckRows(const Bands& rows) {
    const std::vector<NumberedBand> bands = NumberRows(rows);
    return bands.empty() ? SizeAndWeightResult() : CheckSizeAndWeightBands(bands);
}

bool IsListed(const CString& strName, const std::vector<CString>& listed) {
    return std::ranges::find(listed, strName) != listed.end();
}

void ScaleWeights(Bands& bands, double factor) {
    for (CastSizeAndWeightBand& band : bands)
        for (double* pWeight : {&band.weightMin, &band.weightMax})
            if (IsGiven(*pWeight)) *pWeight *= factor;
}

}  // namespace

bool SizeAndWeightGroups::Load(const CMfxRule& rule) {
    for (const CMFXConstraint* pGroup : rule.m_constraintArray) {
        if (pGroup->m_strName.IsEmpty() || !HasParameters(*pGroup, kBandParameterIds)) continue;
        if (!m_groups.contains(pGroup->m_strName)) m_loadedNames.push_back(pGroup->m_strName);
        m_groups[pGroup->m_strName] = ReadBands(*pGroup);
        if (pGroup->m_bActive) SetCurrent(pGroup->m_strName);
    }
    const CMfxParamStorage* pUnit = FindParameter(rule.m_paramArray, kMassUnitId);
    if (!pUnit) return false;
    const MfxArray<CString>& labels = pUnit->GetValues<CString>();
    m_nMassUnit = labels.IsEmpty() ? 0 : FindMassUnit(labels[0]);
    return true;
}

void SizeAndWeightGroups::Store(CMFXWTBasedOnCastSizeAndWeightRule& rule) const {
    rule.ClearConstraints();
    for (const auto& [strGroup, bands] : m_groups)
        if (strGroup != kDefaultGroup) rule.AddGroup(strGroup, strGroup == m_strCurrent, bands);
    CMfxParamStorage* const pUnit = rule.FindParameterInArray(kMassUnitId);
    if (pUnit && m_nMassUnit) pUnit->GetValues<CString>().SetFirst(GetMassUnitLabel(m_nMassUnit));
}

std::vector<CString> SizeAndWeightGroups::GetGroupsWithoutBands() const {
    std::vector<CString> names;
    for (const auto& [strGroup, bands] : m_groups)
        if (bands.empty()) names.push_back(strGroup);
    return names;
}

bool SizeAndWeightGroups::HasUsableBand(std::span<const BandTexts> rows) const {
    const auto hasUsable = [](const Bands& bands) { return std::ranges::any_of(bands, IsUsable); };
    return std::ranges::any_of(m_groups, [&](const auto& group) { return hasUsable(group.second); }) ||
           hasUsable(ReadRows(rows));
}

// A band without a lower bound is not shown, since it would not be read again either.
void SizeAndWeightGroups::SetCurrent(const CString& strGroup) {
    const auto found = m_groups.find(strGroup);
    m_strCurrent = found != m_groups.end() ? strGroup : CString();
    m_rows = found != m_groups.end() ? found->second : Bands();
    for (CastSizeAndWeightBand& band : m_rows)
        if (!HasLowerBound(band)) band = {};
}

std::vector<BandTexts> SizeAndWeightGroups::GetRows() const {
    std::vector<BandTexts> rows(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell)
            rows[row][cell] = TextOf(m_rows[row].*kBandValues[cell]);
    return rows;
}

Bands SizeAndWeightGroups::ReadRows(std::span<const BandTexts> rows) const {
    Bands bands = m_rows;
    bands.resize(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
            double& value = bands[row].*kBandValues[cell];
            const CString& strText = rows[row][cell];
            if (strText != TextOf(value)) value = strText.IsEmpty() ? kValueNotGiven : ParseDouble(strText);
        }
    return bands;
}

void SizeAndWeightGroups::StoreRows() {
    Bands& bands = m_groups[m_strCurrent];
    bands.clear();
    std::ranges::copy_if(m_rows, std::back_inserter(bands), HasLowerBound);
}

void SizeAndWeightGroups::TakeRows(std::span<const BandTexts> rows) {
    if (m_strCurrent.IsEmpty()) return;
    m_rows = ReadRows(rows);
    StoreRows();
}

SizeAndWeightResult SizeAndWeightGroups::Check() const {
    return CheckRows(m_rows);
}

CString SizeAndWeightGroups::FindFlawedGroup() const {
    for (const auto& [strGroup, bands] : m_groups)
        if (CheckRows(bands).flaw != SizeAndWeightFlaw::None) return strGroup;
    return CString();
}

SizeAndWeightResult SizeAndWeightGroups::TakeRowsWhileTyping(std::span<const BandTexts> rows) {
    if (m_strCurrent.IsEmpty()) return {};
    m_rows = ReadRows(rows);
    const SizeAndWeightResult result = CheckSizeAndWeightBandsWhileTyping(NumberRows(m_rows));
    if (result.flaw == SizeAndWeightFlaw::None) StoreRows();
    return result;
}

CString SizeAndWeightGroups::FindUnlisted(const std::vector<CString>& listed) const {
    const auto found =
        std::ranges::find_if(m_groups, [&](const auto& group) { return !IsListed(group.first, listed); });
    return found != m_groups.end() ? found->first : CString();
}

SizeAndWeightGroups::Naming SizeAndWeightGroups::NameGroup(const CString& strName,
                                                           const std::vector<CString>& listed) {
    if (strName.IsEmpty()) return Naming::Ignored;
    Naming naming = Naming::AlreadyThere;
    if (!m_groups.contains(strName)) {
        const CString strOld = FindUnlisted(listed);
        naming = strOld.IsEmpty() ? Naming::Added : Naming::Renamed;
        Bands bands;
        if (naming == Naming::Renamed) bands = std::move(m_groups[strOld]);
        m_groups.erase(strOld);
        m_groups[strName] = std::move(bands);
    }
    SetCurrent(strName);
    return naming;
}

bool SizeAndWeightGroups::EraseUnlisted(const std::vector<CString>& listed) {
    const std::size_t nErased =
        std::erase_if(m_groups, [&](const auto& group) { return !IsListed(group.first, listed); });
    if (!m_groups.contains(m_strCurrent)) SetCurrent(CString());
    return nErased > 0;
}

void SizeAndWeightGroups::ChangeMassUnit(int nMassUnit) {
    const double factor =
        CMFXUnitConvertor().ConversionFromOneUnitToAnotherForMass(1.0, m_nMassUnit, nMassUnit);
    for (auto& [strGroup, bands] : m_groups) ScaleWeights(bands, factor);
    ScaleWeights(m_rows, factor);
    m_nMassUnit = nMassUnit;
}
