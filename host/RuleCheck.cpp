#include "RuleCheck.h"

#include "DraftTableCheck.h"
#include "MFXUnitConvertor.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "RuleParameters.h"
#include "SizeAndWeightCheck.h"
#include "Text.h"

#include <memory>

namespace {

std::string NumberOf(double value) {
    return ToUtf8(FormatDouble(value));
}

double AngleInDegrees(const CString& strCell, int nAngleUnit) {
    return CMFXUnitConvertor().ConversionFromOneUnitToAnother(ParseDouble(strCell), QuantityAngle, nAngleUnit,
                                                              AngleDegree);
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
    void Add(Severity severity, const MfxXMLNode* pElement, long nParamId, const std::string& text) {
        const MfxXMLNode& element = pElement ? *pElement : *m_pEntry->pRecord;
        m_findings.push_back({severity, m_document.GetLine(element), m_pEntry->pRule->GetRuleId(),
                              ToUtf8(m_pEntry->pRule->m_strDisplayName), nParamId, text, false});
    }

    // ---- uniform wall thickness

    void CheckLimits() {
        const MfxParamArray& params = m_pEntry->pRule->m_paramArray;
        if (!FindParameter(params, kThicknessMinId)) return;
        CheckPair(*m_pEntry->pRecord, params, "");
        const auto& constraints = m_pEntry->pRule->m_constraintArray;
        const std::unique_ptr<MfxXMLNodeList> pElements(m_pEntry->pRecord->GetNodeList(kConstraintTag));
        for (int i = 0; i < constraints.GetCount(); ++i) {
            const MfxXMLNode* pElement = (*pElements)[i];
            CheckPair(pElement ? *pElement : *m_pEntry->pRecord, constraints[i]->m_paramArray,
                      ToUtf8(constraints[i]->m_strName) + ": ");
        }
        HintAtOlderForms();
    }

    void CheckPair(const MfxXMLNode& parent, const MfxParamArray& params, const std::string& material) {
        const CMfxParamStorage* pMinimum = FindParameter(params, kThicknessMinId);
        const CMfxParamStorage* pMaximum = FindParameter(params, kThicknessMaxId);
        if (!pMinimum || !pMaximum || !pMinimum->m_bStatus || !pMaximum->m_bStatus) return;
        const MfxArray<double>&minimum = pMinimum->GetValues<double>(),
              &maximum = pMaximum->GetValues<double>();
        if (minimum.IsEmpty() || maximum.IsEmpty() || minimum[0] <= maximum[0] + kTolerance) return;
        Add(Severity::Error, FindParameterElement(parent, kThicknessMinId).get(), kThicknessMinId,
            material + "the minimum, " + NumberOf(minimum[0]) + ", is above the maximum, " +
                NumberOf(maximum[0]));
    }

    void HintAtOlderForms() {
        const MfxXMLNode& record = *m_pEntry->pRecord;
        if (const auto pTable = FindParameterElement(record, kLegacyMaterialTableId))
            Add(Severity::Hint, pTable.get(), kLegacyMaterialTableId,
                "an older form: saving makes a constraint of each of its materials");
        for (const long nParamId : {kThicknessMinId, kThicknessMaxId}) {
            const auto pLimit = FindParameterElement(record, nParamId);
            if (!pLimit) continue;
            const std::unique_ptr<MfxXMLNodeList> pValues(pLimit->GetNodeList(L"Value"));
            if (pValues->GetSize() > 1)
                Add(Severity::Hint, (*pValues)[1], nParamId,
                    "an older form: the first value is a switch, which saving makes the parameter's status");
        }
    }

    // ---- wall thickness by cast size and weight

    void CheckGroups() {
        if (!m_pEntry->pRule->FindParameterInArray(kMassUnitId)) return;
        const auto& groups = m_pEntry->pRule->m_constraintArray;
        const std::unique_ptr<MfxXMLNodeList> pElements(m_pEntry->pRecord->GetNodeList(kConstraintTag));
        for (int i = 0; i < groups.GetCount(); ++i) {
            const MfxXMLNode* pElement = (*pElements)[i];
            const std::vector<NumberedBand> bands = BandsOf(*groups[i]);
            const std::string name = ToUtf8(groups[i]->m_strName) + ": ";
            if (const SizeAndWeightResult result = CheckSizeAndWeightBands(bands);
                result.flaw != SizeAndWeightFlaw::None)
                Add(Severity::Error, pElement, 0, name + Sentence(result));
            for (std::size_t j = 1; j < bands.size(); ++j)
                if (bands[j].band.thickness < bands[j - 1].band.thickness - kTolerance)
                    Add(Severity::Hint, pElement, kThicknessId,
                        name + "row " + std::to_string(bands[j].nRow) +
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
        const auto pElement = FindParameterElement(*m_pEntry->pRecord, kDraftAngleTableId);
        const std::unique_ptr<MfxXMLNodeList> pRows(pElement ? pElement->GetNodeList(L"Value") : nullptr);
        const auto rowElement = [&](std::size_t nRow) {
            return pRows ? (*pRows)[static_cast<long>(nRow)] : nullptr;
        };
        for (std::size_t i = 0; i < rows.size(); ++i) CheckAngles(rows, i, rowElement(i));
        // Stored tables close the last band with a number for "no limit"; the dialog shows it as an empty
        // cell.
        if (!rows.empty() && IsNoUpperLimit(ParseDouble(rows.back().cells[1]))) rows.back().cells[1].Empty();
        const DraftTableResult result = ::CheckDraftTable(rows);
        if (result.flaw == DraftTableFlaw::None) return;
        const MfxXMLNode* pRow =
            result.nRow > 0 ? rowElement(static_cast<std::size_t>(result.nRow) - 1) : nullptr;
        Add(Severity::Error, pRow ? pRow : pElement.get(), kDraftAngleTableId, Sentence(result));
    }

    void CheckAngles(const std::vector<MfxTableRow>& rows, std::size_t nRow, const MfxXMLNode* pElement) {
        constexpr double kRightAngle = 90.0;
        const std::string row = "row " + std::to_string(nRow + 1) + ": ";
        bool bGrows = false;
        for (std::size_t nCell = 2; nCell < 5; ++nCell) {
            const CString& strCell = rows[nRow].cells[nCell];
            if (AngleInDegrees(strCell, m_document.GetUnits().m_nAngleUnit) > kRightAngle - kTolerance)
                Add(Severity::Error, pElement, kDraftAngleTableId,
                    row + "angle " + std::to_string(nCell - 1) + ", " + ToUtf8(strCell) +
                        ", is not below 90 degrees");
            bGrows = bGrows || (nRow > 0 && !strCell.IsEmpty() && !rows[nRow - 1].cells[nCell].IsEmpty() &&
                                ParseDouble(strCell) > ParseDouble(rows[nRow - 1].cells[nCell]) + kTolerance);
        }
        if (bGrows)
            Add(Severity::Hint, pElement, kDraftAngleTableId,
                row + "a draft angle is larger than for smaller sizes");
    }

    // ---- wall thickness variation

    void CheckVariation() {
        const CMfxParamStorage* pVariation = m_pEntry->pRule->FindParameterInArray(kVariationId);
        if (!pVariation || pVariation->GetValues<double>().IsEmpty()) return;
        if (pVariation->GetValues<double>()[0] <= 0.0)
            Add(Severity::Error, FindParameterElement(*m_pEntry->pRecord, kVariationId).get(), kVariationId,
                "the variation has to be above zero");
    }

    const RuleDocument& m_document;
    const RuleDocument::Entry* m_pEntry = nullptr;
    std::vector<Finding> m_findings;
};

}  // namespace

std::vector<Finding> CheckRules(const RuleDocument& document) {
    return RuleChecker(document).Check();
}
