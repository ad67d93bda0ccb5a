#include "DraftSheetTexts.h"

#include "DraftTableTexts.h"
#include "ModuleText.h"
#include "resource.h"

CString DraftSheetFaultText(const DraftSheet& sheet) {
    switch (sheet.fault) {
        case DraftSheetFault::WrongHeadings:
            return LoadModuleText(IDS_DRAFT_WRONG_HEADINGS);
        case DraftSheetFault::UnevenColumns:
            return LoadModuleText(IDS_DRAFT_UNEVEN_COLUMNS);
        case DraftSheetFault::TooManyBands:
            return LoadModuleText(IDS_DRAFT_TOO_MANY_BANDS);
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
