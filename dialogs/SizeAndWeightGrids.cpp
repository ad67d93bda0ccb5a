#include "SizeAndWeightGrids.h"

namespace {

using Grid = CMFXWTBasedOnSizeAndWeightListCtrl;

constexpr int kEmptyRows = 200;

int BandCol(std::size_t cell) {
    return Grid::kFirstBandCol + static_cast<int>(cell);
}

}  // namespace

void ShowGroups(CMFXListCtrl& list, const std::vector<CString>& names) {
    list.MakeEmptyRows(static_cast<int>(names.size()) + kEmptyRows);
    for (int nRow = 0; nRow < static_cast<int>(names.size()); ++nRow)
        list.SetCellText(nRow, Grid::kGroupCol, names[static_cast<std::size_t>(nRow)]);
}

void ShowBands(CMFXListCtrl& grid, const std::vector<BandTexts>& rows) {
    const int nRows = static_cast<int>(rows.size());
    grid.MakeEmptyRows(nRows < kEmptyRows ? kEmptyRows : nRows + kEmptyRows);
    WriteBands(grid, rows);
}

void WriteBands(CMFXListCtrl& grid, const std::vector<BandTexts>& rows) {
    grid.ForgetEditedCell();
    grid.SetRedraw(FALSE);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell)
            if (!rows[row][cell].IsEmpty())
                grid.SetCellText(static_cast<int>(row), BandCol(cell), rows[row][cell]);
    grid.SetRedraw(TRUE);
    grid.Invalidate();
}

std::vector<CString> ReadGroups(const CMFXListCtrl& list) {
    std::vector<CString> names;
    for (int nRow = 0; nRow < list.GetItemCount(); ++nRow) {
        const CString strName = list.GetItemText(nRow, Grid::kGroupCol);
        if (!strName.IsEmpty()) names.push_back(strName);
    }
    return names;
}

std::vector<BandTexts> ReadBandRows(const CMFXListCtrl& grid) {
    std::vector<BandTexts> rows(static_cast<std::size_t>(grid.GetItemCount()));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell)
            rows[row][cell] = grid.GetItemText(static_cast<int>(row), BandCol(cell));
    if (grid.IsEditorVisible())
        rows[static_cast<std::size_t>(grid.GetEditRow())]
            [static_cast<std::size_t>(grid.GetEditCol() - Grid::kFirstBandCol)] = grid.GetEditorText();
    return rows;
}

void SelectGroupRow(CMFXListCtrl& list, const CString& strGroup) {
    constexpr UINT kStates = LVIS_SELECTED | LVIS_FOCUSED;
    for (int nRow = 0; !strGroup.IsEmpty() && nRow < list.GetItemCount(); ++nRow)
        if (list.GetItemText(nRow, Grid::kGroupCol) == strGroup) {
            list.SetItemState(nRow, kStates, kStates);
            list.EnsureVisible(nRow, FALSE);
            return;
        }
}
