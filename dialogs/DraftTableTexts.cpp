#include "DraftTableTexts.h"

#include "DialogTexts.h"
#include "NumberText.h"
#include "resource.h"

// The row of an empty cell is written as the cells' numbers are ("2.0"), the others are not. This is on
// purpose.
CString DraftFlawText(const DraftTableResult& result) {
    CString strRow;
    strRow.Format(L"%d", result.nRow);
    switch (result.flaw) {
        case DraftTableFlaw::NoBands:
            return LoadLocalizedString(IDS_DRAFT_NO_BANDS);
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

CString DraftSheetFaultText(const DraftSheet& sheet) {
    switch (sheet.fault) {
        case DraftSheetFault::WrongHeadings:
            return LoadLocalizedString(IDS_DRAFT_WRONG_HEADINGS);
        case DraftSheetFault::UnevenColumns:
            return LoadLocalizedString(IDS_DRAFT_UNEVEN_COLUMNS);
        case DraftSheetFault::TooManyBands:
            return LoadLocalizedString(IDS_DRAFT_TOO_MANY_BANDS);
        case DraftSheetFault::NoNumber:
            return FormattedText(IDS_DRAFT_NO_NUMBER, sheet.strCell, sheet.strText);
        case DraftSheetFault::RefusedTable:
            return sheet.table.flaw == DraftTableFlaw::NoBands
                       ? DraftFlawText(sheet.table)
                       : FormattedText(IDS_DRAFT_NOT_IMPORTED, DraftFlawText(sheet.table));
        case DraftSheetFault::None:
            break;
    }
    return CString();
}
