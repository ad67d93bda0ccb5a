#include "RuleCheck.h"

#include "DraftTableCheck.h"
#include "MFXUnitConvertor.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleParameters.h"
#include "RuleValues.h"
#include "SizeAndWeightCheck.h"
#include "Text.h"
#include "UnitNames.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <tuple>

namespace {

std::string NumberOf(double value) {
    constexpr int kDigits = 10;  // of bounds that differ by little both are named
    return FormatNumber(value, kDigits);
}

double InDegrees(double angle, int nAngleUnit) {
    return CMFXUnitConvertor().ConversionFromOneUnitToAnother(angle, QuantityAngle, nAngleUnit, AngleDegree);
}

// Element i of a list of numbers; kValueNotGiven behind its end and for any negative number.
double ElementOf(const CMFXConstraint& group, long nParamId, int nIndex) {
    const CMfxParamStorage* pStorage = group.FindParameterInArray(nParamId);
    if (!pStorage || nIndex >= pStorage->GetValues<double>().GetCount()) return kValueNotGiven;
    const double value = pStorage->GetValues<double>()[nIndex];
    return value < -kTolerance ? kValueNotGiven : value;
}

bool IsBlank(const CastSizeAndWeightBand& band) {
    for (const double value : {band.sizeMin, band.sizeMax, band.weightMin, band.weightMax, band.thickness})
        if (value != kValueNotGiven) return false;
    return true;
}

// The bands of a group as its dialog loads them.
std::vector<NumberedBand> BandsOf(const CMFXConstraint& group) {
    std::vector<NumberedBand> bands;
    const CMfxParamStorage* pSizes = group.FindParameterInArray(kSizeMinId);
    for (int i = 0; pSizes && i < pSizes->GetValues<double>().GetCount(); ++i) {
        const CastSizeAndWeightBand band{ElementOf(group, kSizeMinId, i), ElementOf(group, kSizeMaxId, i),
                                         ElementOf(group, kWeightMinId, i), ElementOf(group, kWeightMaxId, i),
                                         ElementOf(group, kThicknessId, i)};
        if (!IsBlank(band)) bands.push_back({static_cast<int>(bands.size()) + 1, band});
    }
    return bands;
}

// "row 2 begins at 30 mm, but row 1 ends at 25.4 mm: sizes between are not covered"
std::string GapSentence(int nRow, double begin, int nRowBefore, double end, const std::string& noun,
                        const std::string& unit) {
    return "row " + std::to_string(nRow) + " begins at " + NumberOf(begin) + " " + unit + ", but row " +
           std::to_string(nRowBefore) + " ends at " + NumberOf(end) + " " + unit + ": " +
           (begin > end ? noun + " between are not covered" : "the bands overlap");
}

std::string InvertedSentence(double begin, double end) {
    return end < begin - kTolerance ? "ends before it begins" : "ends where it begins";
}

// What the dialog asks of two columns of the bands.
struct BandRange {
    double CastSizeAndWeightBand::*lower;
    double CastSizeAndWeightBand::*upper;
    std::string noun, unit;
};

// The row continues the nearest one before it that has an upper bound.
std::string GapSentence(const std::vector<NumberedBand>& bands, const SizeAndWeightResult& result,
                        const BandRange& range) {
    auto nBefore = static_cast<std::size_t>(result.nRow - 1);
    const double begin = bands[nBefore].band.*range.lower;
    do --nBefore;
    while (nBefore > 0 && bands[nBefore].band.*range.upper == kValueNotGiven);
    return GapSentence(result.nRow, begin, bands[nBefore].nRow, result.expected, range.noun, range.unit);
}

std::string InvertedSentence(const std::vector<NumberedBand>& bands, const SizeAndWeightResult& result,
                             const BandRange& range) {
    const CastSizeAndWeightBand& band = bands[static_cast<std::size_t>(result.nRow - 1)].band;
    return InvertedSentence(band.*range.lower, band.*range.upper);
}

std::string Sentence(const std::vector<NumberedBand>& bands, const SizeAndWeightResult& result,
                     const BandRange& sizes, const BandRange& weights) {
    const std::string row = "row " + std::to_string(result.nRow) + ": ";
    switch (result.flaw) {
        case SizeAndWeightFlaw::SizeInverted:
            return row + "the size band " + InvertedSentence(bands, result, sizes);
        case SizeAndWeightFlaw::MissingOrZero:
            return row + "a size, weight or thickness is zero";
        case SizeAndWeightFlaw::SizeNotContiguous:
            return GapSentence(bands, result, sizes);
        case SizeAndWeightFlaw::NoBands:
            return "no band has both sizes or both weights, and a wall thickness";
        case SizeAndWeightFlaw::WeightInverted:
            return row + "the weight band " + InvertedSentence(bands, result, weights);
        case SizeAndWeightFlaw::WeightNotContiguous:
            return GapSentence(bands, result, weights);
        case SizeAndWeightFlaw::SizeIncomplete:
            return row + "one of the two sizes is missing";
        case SizeAndWeightFlaw::WeightIncomplete:
            return row + "one of the two weights is missing";
        case SizeAndWeightFlaw::SizeAndWeightIncomplete:
            return row + "a size and a weight are missing";
        case SizeAndWeightFlaw::ThicknessMissing:
            return row + "the wall thickness is missing";
        case SizeAndWeightFlaw::IncompleteWhileTyping:
        case SizeAndWeightFlaw::None:
            break;
    }
    return {};
}

std::string Sentence(const std::vector<MfxTableRow>& rows, const DraftTableResult& result,
                     const std::string& unit) {
    const auto number = [&](int nRow, std::size_t nCell) {
        return ParseDouble(rows[static_cast<std::size_t>(nRow - 1)].cells[nCell]);
    };
    const std::string row = "row " + std::to_string(result.nRow) + ": ";
    switch (result.flaw) {
        case DraftTableFlaw::NoBands:
            return "the table is empty";
        case DraftTableFlaw::IncompleteRow:
            return row + "a bound or an angle is missing or zero";
        case DraftTableFlaw::UpperNotAboveLower:
            return row + "the band " +
                   InvertedSentence(number(result.nRow, DraftCell::LowerBound),
                                    number(result.nRow, DraftCell::UpperBound));
        case DraftTableFlaw::NotContiguous:
            return GapSentence(result.nRow, number(result.nRow, DraftCell::LowerBound), result.nRow - 1,
                               result.expected, "sizes", unit);
        case DraftTableFlaw::None:
            break;
    }
    return {};
}

class RuleChecker {
  public:
    RuleChecker(const RuleDocument& document, const std::vector<Finding>& findings) : m_document(document) {
        for (const Finding& finding : findings)
            if (finding.bUnread) m_unread.emplace(finding.nEntry, finding.nConstraint, finding.nParamId);
    }

    std::vector<Finding> Check() {
        for (const RuleDocument::Entry& entry : m_document.GetEntries()) {
            if (!entry.pRule) continue;
            m_pEntry = &entry;
            CheckLimits();
            CheckGroups();
            CheckDraftTable();
            CheckVariation();
        }
        return std::move(m_findings);
    }

  private:
    // In a constraint the text says in which one.
    void Add(Severity severity, const RecordPlace& place, const std::string& text) {
        const CMfxRule& rule = *m_pEntry->pRule;
        const std::string constraint =
            place.nConstraint >= 0 ? Shortened(rule.m_constraintArray[place.nConstraint]->m_strName) + ": "
                                   : "";
        Finding finding = m_document.StartFinding(severity, m_pEntry, place);
        finding.nLine = m_document.GetLine(*m_pEntry, place);
        finding.text = constraint + text;
        m_findings.push_back(std::move(finding));
    }

    bool IsRead(int nConstraint, std::initializer_list<long> paramIds) const {
        const auto nEntry = static_cast<int>(m_pEntry - m_document.GetEntries().data());
        return std::ranges::none_of(paramIds, [&](long nParamId) {
            return m_unread.contains({nEntry, nConstraint, nParamId});
        });
    }

    // ---- uniform wall thickness

    void CheckLimits() {
        const MfxParamArray& params = m_pEntry->pRule->m_paramArray;
        if (!FindParameter(params, kThicknessMinId)) return;
        CheckPair(-1, params);
        const auto& constraints = m_pEntry->pRule->m_constraintArray;
        for (int i = 0; i < constraints.GetCount(); ++i) CheckPair(i, constraints[i]->m_paramArray);
        HintAtOlderForms();
    }

    void CheckPair(int nConstraint, const MfxParamArray& params) {
        const CMfxParamStorage* pMinimum = FindParameter(params, kThicknessMinId);
        const CMfxParamStorage* pMaximum = FindParameter(params, kThicknessMaxId);
        if (!pMinimum || !pMaximum || !IsRead(nConstraint, {kThicknessMinId, kThicknessMaxId}) ||
            !IsRead(-1, {kLegacyMaterialTableId}))
            return;
        for (const CMfxParamStorage* pLimit : {pMinimum, pMaximum}) {
            const MfxArray<double>& values = pLimit->GetValues<double>();
            if (pLimit->m_bStatus && !values.IsEmpty() && values[0] <= 0.0)
                Add(Severity::Error, {nConstraint, pLimit->m_nParamId}, "the limit has to be above zero");
        }
        if (!pMinimum->m_bStatus || !pMaximum->m_bStatus) return;
        const MfxArray<double>&minimum = pMinimum->GetValues<double>(),
              &maximum = pMaximum->GetValues<double>();
        if (minimum.IsEmpty() || maximum.IsEmpty() || minimum[0] <= maximum[0] + kTolerance) return;
        Add(Severity::Error, {nConstraint, kThicknessMinId},
            "the minimum, " + NumberOf(minimum[0]) + ", is above the maximum, " + NumberOf(maximum[0]));
    }

    void HintAtOlderForms() {
        if (FindParameterElement(*m_pEntry->pRecord, kLegacyMaterialTableId))
            Add(Severity::Hint, {-1, kLegacyMaterialTableId},
                "an older form: saving makes a constraint of each of its materials");
        for (const long nParamId : {kThicknessMinId, kThicknessMaxId}) {
            const auto pLimit = FindParameterElement(*m_pEntry->pRecord, nParamId);
            const auto value = pLimit ? pLimit->FindChild(L"Value") : std::nullopt;
            if (value && value->FindNext(L"Value"))
                Add(Severity::Hint, {-1, nParamId, 2},
                    "an older form: the first value is a switch, which saving makes the parameter's status");
        }
    }

    // ---- wall thickness by cast size and weight

    void CheckGroups() {
        if (!m_pEntry->pRule->FindParameterInArray(kMassUnitId)) return;
        const auto& groups = m_pEntry->pRule->m_constraintArray;
        const std::string length = LengthUnitSymbol(m_pEntry->pRule->m_nLengthUnit);
        using Band = CastSizeAndWeightBand;
        const BandRange sizes{&Band::sizeMin, &Band::sizeMax, "sizes", length},
            weights{&Band::weightMin, &Band::weightMax, "weights", MassUnitLabel(*m_pEntry->pRule)};
        for (int i = 0; i < groups.GetCount(); ++i) {
            if (!IsRead(i, {kSizeMinId, kSizeMaxId, kWeightMinId, kWeightMaxId, kThicknessId})) continue;
            const std::vector<NumberedBand> bands = BandsOf(*groups[i]);
            if (const SizeAndWeightResult result = CheckSizeAndWeightBands(bands);
                result.flaw != SizeAndWeightFlaw::None)
                Add(Severity::Error, {i}, Sentence(bands, result, sizes, weights));
            for (std::size_t j = 1; j < bands.size(); ++j)
                if (bands[j].band.thickness != kValueNotGiven &&
                    bands[j].band.thickness < bands[j - 1].band.thickness - kTolerance)
                    Add(Severity::Hint, {i, kThicknessId},
                        "row " + std::to_string(bands[j].nRow) +
                            ": the wall is thinner than in the band before");
        }
    }

    // ---- variable draft angle

    void CheckDraftTable() {
        const CMfxParamStorage* pTable = m_pEntry->pRule->FindParameterInArray(kDraftAngleTableId);
        if (!pTable || !IsRead(-1, {kDraftAngleTableId})) return;
        std::vector<MfxTableRow> rows(pTable->GetValues<MfxTableRow>().begin(),
                                      pTable->GetValues<MfxTableRow>().end());
        for (MfxTableRow& row : rows) row.cells.resize(DraftCell::Count);
        CheckAngles(rows);
        // Stored tables close the last band with a number for "no limit"; the dialog shows it as an empty
        // cell.
        if (!rows.empty()) {
            CString& strLast = rows.back().cells[DraftCell::UpperBound];
            if (IsNoUpperLimit(ParseDouble(strLast))) strLast.Empty();
        }
        const DraftTableResult result = ::CheckDraftTable(rows);
        if (result.flaw != DraftTableFlaw::None)
            Add(Severity::Error, {-1, kDraftAngleTableId, result.nRow},
                Sentence(rows, result, LengthUnitSymbol(m_pEntry->pRule->m_nLengthUnit)));
    }

    void CheckAngles(const std::vector<MfxTableRow>& rows) {
        constexpr double kRightAngle = 90.0, kNone = std::numeric_limits<double>::infinity();
        std::array<double, DraftCell::Count> before;  // the row's above
        before.fill(kNone);
        RecordPlace place{-1, kDraftAngleTableId};
        for (const MfxTableRow& row : rows) {
            const std::string prefix = "row " + std::to_string(++place.nRow) + ": ";
            bool bGrows = false;
            for (std::size_t nCell = DraftCell::FirstAngle; nCell < DraftCell::Count; ++nCell) {
                const CString& strCell = row.cells[nCell];
                const double angle = ParseDouble(strCell);
                if (InDegrees(angle, m_document.GetUnits().m_nAngleUnit) > kRightAngle - kTolerance)
                    Add(Severity::Error, place,
                        prefix + "angle " + std::to_string(nCell - DraftCell::UpperBound) + ", " +
                            ToUtf8(strCell) + ", is not below 90 degrees");
                bGrows = bGrows || angle > before[nCell] + kTolerance;
                before[nCell] = strCell.IsEmpty() ? kNone : angle;
            }
            if (bGrows) Add(Severity::Hint, place, prefix + "a draft angle is larger than for smaller sizes");
        }
    }

    // ---- wall thickness variation

    void CheckVariation() {
        const CMfxParamStorage* pVariation = m_pEntry->pRule->FindParameterInArray(kVariationId);
        if (!pVariation || !IsRead(-1, {kVariationId}) || pVariation->GetValues<double>().IsEmpty()) return;
        if (pVariation->GetValues<double>()[0] <= 0.0)
            Add(Severity::Error, {-1, kVariationId}, "the variation has to be above zero");
    }

    const RuleDocument& m_document;
    const RuleDocument::Entry* m_pEntry = nullptr;
    std::set<std::tuple<int, int, long>> m_unread;  // entry, constraint and parameter
    std::vector<Finding> m_findings;
};

}  // namespace

std::vector<Finding> CheckRules(const RuleDocument& document, const std::vector<Finding>& findings) {
    return RuleChecker(document, findings).Check();
}
