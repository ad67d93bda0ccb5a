#include "DraftTableTexts.h"

#include "ModuleText.h"
#include "NumberText.h"
#include "XmlNumber.h"
#include "resource.h"

// The row of an empty cell is written as the cells' numbers are ("2.0"), the others are not. This is on
// purpose.
CString DraftFlawText(const DraftTableResult& result) {
    const CString strRow = FormatInteger(result.nRow);
    switch (result.flaw) {
        case DraftTableFlaw::NoBands:
            return LoadModuleText(IDS_DRAFT_NO_BANDS);
        case DraftTableFlaw::EmptyCell:
            return FormattedText(IDS_DRAFT_INCOMPLETE_ROW, FormatDouble(result.nRow));
        case DraftTableFlaw::IncompleteRow:
            return FormattedText(IDS_DRAFT_INCOMPLETE_ROW, strRow);
        case DraftTableFlaw::UpperNotAboveLower:
            return FormattedText(IDS_DRAFT_UPPER_NOT_ABOVE_LOWER, strRow);
        case DraftTableFlaw::NotContiguous:
            return FormattedText(IDS_DRAFT_NOT_CONTIGUOUS, FormatDouble(result.expected), strRow);
        case DraftTableFlaw::None:
            break;
    }
    return CString();
}
