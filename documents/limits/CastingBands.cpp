#include "CastingBands.h"

#include "CastSizeAndWeightBand.h"
#include "NumberText.h"

#include <algorithm>
#include <cmath>

namespace {

using Band = CastingBands::Band;

bool Holds(double lower, double upper, std::optional<double> value) {
    if (!value) return !IsGiven(lower) && !IsGiven(upper);
    return (!IsGiven(lower) || *value >= lower - kTolerance) &&
           (!IsGiven(upper) || IsNoUpperLimit(upper) || *value <= upper + kTolerance);
}

std::string Range(const std::string& noun, double lower, double upper, const std::string& unit) {
    if (!IsGiven(lower) && !IsGiven(upper)) return "";
    const std::string from = " from " + FormatNumber(std::max(lower, 0.0));
    if (!IsGiven(upper) || IsNoUpperLimit(upper)) return noun + from + " " + unit + " on";
    return noun + from + " to " + FormatNumber(upper) + " " + unit;
}

// kValueNotGiven for a value that is not there.
double NumberAt(const ValuesByKey& values, const std::string& key) {
    const auto found = values.find(key);
    return found != values.end() ? StoredNumber(found->second->content) : kValueNotGiven;
}

// An upper size of zero in the last of several bands means that there is no limit.
void OpenLastBand(std::vector<Band>& bands) {
    if (bands.size() > 1 && std::fabs(bands.back().sizeMax) <= kTolerance)
        bands.back().sizeMax = NoUpperLimitValue;
}

}  // namespace

bool CastingBands::NeedSize() const {
    return std::ranges::any_of(
        m_bands, [](const Band& band) { return IsGiven(band.sizeMin) || IsGiven(band.sizeMax); });
}

bool CastingBands::NeedWeight() const {
    return std::ranges::any_of(
        m_bands, [](const Band& band) { return IsGiven(band.weightMin) || IsGiven(band.weightMax); });
}

const Band* CastingBands::Find(std::optional<double> size, std::optional<double> weight) const {
    const auto found = std::ranges::find_if(m_bands, [&](const Band& band) {
        return Holds(band.sizeMin, band.sizeMax, size) && Holds(band.weightMin, band.weightMax, weight);
    });
    return found != m_bands.end() ? &*found : nullptr;
}

std::string CastingBands::Describe(const Band& band, const RuleUnits& units) {
    const std::string size = Range("size", band.sizeMin, band.sizeMax, UnitSymbol(Quantity::Length, units));
    const std::string weight =
        Range("weight", band.weightMin, band.weightMax, UnitSymbol(Quantity::Mass, units));
    return size + (size.empty() || weight.empty() ? "" : ", ") + weight;
}

std::string CastingBands::Describe(const RuleUnits& units) const {
    Band all = m_bands.front();
    for (const Band& band : m_bands) {
        all.sizeMin = std::min(all.sizeMin, band.sizeMin);
        all.sizeMax = std::max(all.sizeMax, band.sizeMax);
        all.weightMin = std::min(all.weightMin, band.weightMin);
        all.weightMax = std::max(all.weightMax, band.weightMax);
    }
    return Describe(all, units);
}

CastingBands BandsOfGroup(const ValuesByKey& values, const std::string& groupKey) {
    std::vector<Band> bands;
    const auto keyOf = [&](std::size_t cell, int row) {
        return groupKey + "/" + std::to_string(kBandParameterIds[cell]) + "/" + std::to_string(row);
    };
    for (int row = 1; values.contains(keyOf(BandCell::SizeMin, row)); ++row) {
        CastSizeAndWeightBand band;
        std::vector<std::string> keys;
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
            keys.push_back(keyOf(cell, row));
            band.*kBandValues[cell] = NumberAt(values, keys.back());
        }
        if (!IsUsable(band)) continue;
        const std::string thicknessKey = keys.back();
        keys.pop_back();
        bands.push_back({.key = groupKey + "/band/" + std::to_string(row),
                         .row = row,
                         .sizeMin = band.sizeMin,
                         .sizeMax = band.sizeMax,
                         .weightMin = band.weightMin,
                         .weightMax = band.weightMax,
                         .boundKeys = keys,
                         .limitKeys = {thicknessKey}});
    }
    OpenLastBand(bands);
    return CastingBands(std::move(bands));
}

CastingBands BandsOfDraftTable(const ValuesByKey& values) {
    std::vector<Band> bands;
    for (int row = 1;; ++row) {
        const std::string key = std::to_string(kDraftAngleTableId) + "/" + std::to_string(row);
        const auto lower = values.find(key + "/from");
        if (lower == values.end()) break;
        const auto isNumber = [&](const char* column) {
            const auto found = values.find(key + column);
            return found != values.end() && std::holds_alternative<double>(found->second->content);
        };
        const bool isLast =
            !values.contains(std::to_string(kDraftAngleTableId) + "/" + std::to_string(row + 1) + "/from");
        double upper = NumberAt(values, key + "/to");
        if (isLast && !IsGiven(upper)) upper = NoUpperLimitValue;
        if (!isNumber("/from") || !isNumber("/angle1") || !isNumber("/angle2") || !IsGiven(upper)) continue;
        bands.push_back({.key = key,
                         .row = row,
                         .sizeMin = NumberAt(values, key + "/from"),
                         .sizeMax = upper,
                         .weightMin = kValueNotGiven,
                         .weightMax = kValueNotGiven,
                         .boundKeys = {key + "/from", key + "/to"},
                         .limitKeys = {key + "/angle1", key + "/angle2", key + "/angle3"}});
    }
    return CastingBands(std::move(bands));
}
