#include "RuleCheck.h"

#include "DraftTableCheck.h"
#include "MFXUnitConvertor.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleParameters.h"
#include "SizeAndWeightCheck.h"
#include "Text.h"

#include <limits>
#include <memory>

namespace {

std::string NumberOf(double value) {
    return ToUtf8(FormatDouble(value));
}

double InDegrees(double angle, int nAngleUnit) {
    return CMFXUnitConvertor().ConversionFromOneUnitToAnother(angle, QuantityAngle, nAngleUnit, AngleDegree);
}

// Element i of a list of numbers, kValueNotGiven behind its end.
double ElementOf(const CMFXConstraint& group, long nParamId, int nIndex) {
    const CMfxParamStorage* pStorage = group.FindParameterInArray(nParamId);
    if (!pStorage || nIndex >= pStorage->GetValues<double>().GetCount()) return kValueNotGiven;
    return pStorage->GetValues<double>()[nIndex];
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

std::string Sentence(const SizeAndWeightResult& result) {
    const std::string row = "row " + std::to_string(result.nRow) + ": ";
    const std::string expected =
        "instead of at " + NumberOf(result.expected) + ", where the one before it ends";
    switch (result.flaw) {
        case SizeAndWeightFlaw::SizeInverted:
            return row + "the size band ends before it begins";
        case SizeAndWeightFlaw::MissingOrZero:
            return row + "a size, weight or thickness is zero";
        case SizeAndWeightFlaw::SizeNotContiguous:
            return row + "the size band begins elsewhere " + expected;
        case SizeAndWeightFlaw::NoBands:
            return "there is no band";
        case SizeAndWeightFlaw::WeightInverted:
            return row + "the weight band ends before it begins";
        case SizeAndWeightFlaw::WeightNotContiguous:
            return row + "the weight band begins elsewhere " + expected;
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

std::string Sentence(const DraftTableResult& result) {
    const std::string row = "row " + std::to_string(result.nRow) + ": ";
    switch (result.flaw) {
        case DraftTableFlaw::NoBands:
            return "the table is empty";
        case DraftTableFlaw::IncompleteRow:
            return row + "a bound or an angle is missing or zero";
        case DraftTableFlaw::UpperNotAboveLower:
            return row + "the band ends before it begins";
        case DraftTableFlaw::NotContiguous:
            return row + "the band begins elsewhere instead of at " + NumberOf(result.expected) +
                   ", where the one before it ends";
        case DraftTableFlaw::None:
            break;
    }
    return {};
}

class RuleChecker {
  public:
    explicit RuleChecker(const RuleDocument& document) : m_document(document) {}

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
            place.nConstraint >= 0 ? ToUtf8(rule.m_constraintArray[place.nConstraint]->m_strName) + ": " : "";
        m_findings.push_back({severity, m_document.GetLine(*m_pEntry, place), rule.GetRuleId(),
                              ToUtf8(rule.m_strDisplayName), place.nParamId, constraint + text, false});
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
        if (!pMinimum || !pMaximum || !pMinimum->m_bStatus || !pMaximum->m_bStatus) return;
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
        const std::unique_ptr<MfxXMLNodeList> pElements(m_pEntry->pRecord->GetNodeList(kConstraintTag));
        for (int i = 0; i < groups.GetCount(); ++i) {
            const std::vector<NumberedBand> bands = BandsOf(*groups[i]);
            if (const SizeAndWeightResult result = CheckSizeAndWeightBands(bands);
                result.flaw != SizeAndWeightFlaw::None)
                Add(Severity::Error, {i}, Sentence(result));
            for (std::size_t j = 1; j < bands.size(); ++j)
                if (bands[j].band.thickness < bands[j - 1].band.thickness - kTolerance)
                    Add(Severity::Hint, {i, kThicknessId},
                        "row " + std::to_string(bands[j].nRow) +
                            ": the wall is thinner than in the band before");
        }
    }

    // ---- variable draft angle

    void CheckDraftTable() {
        const CMfxParamStorage* pTable = m_pEntry->pRule->FindParameterInArray(kDraftAngleTableId);
        if (!pTable) return;
        std::vector<MfxTableRow> rows(pTable->GetValues<MfxTableRow>().begin(),
                                      pTable->GetValues<MfxTableRow>().end());
        for (MfxTableRow& row : rows) row.cells.resize(5);
        CheckAngles(rows);
        // Stored tables close the last band with a number for "no limit"; the dialog shows it as an empty
        // cell.
        if (!rows.empty() && IsNoUpperLimit(ParseDouble(rows.back().cells[1]))) rows.back().cells[1].Empty();
        const DraftTableResult result = ::CheckDraftTable(rows);
        if (result.flaw != DraftTableFlaw::None)
            Add(Severity::Error, {-1, kDraftAngleTableId, result.nRow}, Sentence(result));
    }

    void CheckAngles(const std::vector<MfxTableRow>& rows) {
        constexpr double kRightAngle = 90.0, kNone = std::numeric_limits<double>::infinity();
        double before[] = {kNone, kNone, kNone, kNone, kNone};  // the row's above
        RecordPlace place{-1, kDraftAngleTableId};
        for (const MfxTableRow& row : rows) {
            const std::string prefix = "row " + std::to_string(++place.nRow) + ": ";
            bool bGrows = false;
            for (std::size_t nCell = 2; nCell < 5; ++nCell) {
                const CString& strCell = row.cells[nCell];
                const double angle = ParseDouble(strCell);
                if (InDegrees(angle, m_document.GetUnits().m_nAngleUnit) > kRightAngle - kTolerance)
                    Add(Severity::Error, place,
                        prefix + "angle " + std::to_string(nCell - 1) + ", " + ToUtf8(strCell) +
                            ", is not below 90 degrees");
                bGrows = bGrows || angle > before[nCell] + kTolerance;
                before[nCell] = strCell.IsEmpty() ? kNone : angle;
            }
            if (bGrows) Add(Severity::Hint, place, prefix + "a draft angle is larger than for smaller sizes");
        }
    }

    // ---- wall thickness variation

    void CheckVariation() {
        const CMfxParamStorage* pVariation = m_pEntry->pRule->FindParameterInArray(kVariationId);
        if (!pVariation || pVariation->GetValues<double>().IsEmpty()) return;
        if (pVariation->GetValues<double>()[0] <= 0.0)
            Add(Severity::Error, {-1, kVariationId}, "the variation has to be above zero");
    }

    const RuleDocument& m_document;
    const RuleDocument::Entry* m_pEntry = nullptr;
    std::vector<Finding> m_findings;
};

}  // namespace

std::vector<Finding> CheckRules(const RuleDocument& document) {
    return RuleChecker(document).Check();
}
