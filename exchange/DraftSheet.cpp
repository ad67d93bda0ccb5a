#include "DraftSheet.h"

#include "NumberText.h"
#include "Text.h"

#include <algorithm>

namespace {

bool HasHeadings(const WorkbookTable& columns) {
    if (columns.size() < DraftCell::Count) return false;
    for (std::size_t cell = 0; cell < DraftCell::Count; ++cell)
        if (columns[cell].empty() || ToUtf8(columns[cell].front()) != kDraftSheetHeadings[cell]) return false;
    return true;
}

bool AreEven(const WorkbookTable& columns) {
    return std::all_of(columns.begin(), columns.begin() + DraftCell::Count,
                       [&](const auto& column) { return column.size() == columns.front().size(); });
}

std::vector<MfxTableRow> RowsBelowHeadings(const WorkbookTable& columns) {
    std::vector<MfxTableRow> rows(columns.front().size() - 1);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < DraftCell::Count; ++cell)
            rows[row].cells.push_back(columns[cell][row + 1]);
    return rows;
}

// The first cell that is no number, or none.
DraftSheet FindText(const std::vector<MfxTableRow>& rows) {
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < DraftCell::Count; ++cell) {
            const CString& strText = rows[row].cells[cell];
            if (IsNumericText(strText)) continue;
            CString strCell;
            strCell.Format(L"%c%d", kDraftSheetColumns[cell][0], static_cast<int>(row) + 2);
            return {DraftSheetFault::NoNumber, {}, strCell, strText};
        }
    return {};
}

}  // namespace

DraftSheet ReadDraftSheet(const WorkbookTable& columns) {
    if (!HasHeadings(columns)) return {DraftSheetFault::WrongHeadings, {}, {}, {}};
    if (!AreEven(columns)) return {DraftSheetFault::UnevenColumns, {}, {}, {}};
    if (columns.front().size() - 1 > kMostDraftBands) return {DraftSheetFault::TooManyBands, {}, {}, {}};
    const std::vector<MfxTableRow> rows = RowsBelowHeadings(columns);
    DraftSheet sheet = FindText(rows);
    if (sheet.fault != DraftSheetFault::None) return sheet;
    sheet.table = CheckDraftTable(rows);
    if (sheet.table.flaw == DraftTableFlaw::None) return sheet;
    sheet.fault = DraftSheetFault::RefusedTable;
    if (sheet.table.nRow > 0) ++sheet.table.nRow;
    return sheet;
}
