#include "DraftRowCheck.h"

#include "DraftTableCheck.h"
#include "ElementCheck.h"
#include "RecordNames.h"
#include "Text.h"

#include <algorithm>
#include <set>

namespace {

constexpr std::size_t kRequiredCells = DraftCell::ThirdAngle;  // the third angle may be empty

// Rows with too few cells are never converted.
void CheckCellCount(const Reporter& reporter, const MfxXMLNode& row, std::size_t cells) {
    if (cells < kRequiredCells) reporter.Add<FindingCode::TooFewCells>(row, Count(cells, "cell"));
    if (cells > DraftCell::Count) reporter.Add<FindingCode::TooManyCells>(row, Count(cells, "cell"));
}

// The dialog drops a row unless it has five cells, of which only the last one may be empty.
void CheckForDialog(const Reporter& reporter, const MfxXMLNode& row, const std::vector<CString>& cells) {
    if (cells.size() < kRequiredCells) return;
    const auto first = std::ranges::find_if(cells, &CString::IsEmpty);
    const auto empty = static_cast<std::size_t>(first - cells.begin());
    const int number = static_cast<int>(empty) + 1;
    if (empty < kRequiredCells)
        reporter.Add<FindingCode::EmptyRequiredCell>(row, number);
    else if (cells.size() < DraftCell::Count)
        reporter.Add<FindingCode::MissingCell>(row, number);
}

// Reading stops at the first missing cell.
void CheckAllCellsRead(const Reporter& reporter, const MfxXMLNode& row, std::size_t cells) {
    if (row.GetAttributeCount() == cells) return;
    std::set<CString> further;
    for (const CString& name : row.GetAttributeNames())
        if (IsCellAttribute(name)) further.insert(name);
    for (std::size_t i = 0; i < cells; ++i) further.erase(CellAttribute(i));
    if (!further.empty()) reporter.Add<FindingCode::CellsNotRead>(row, ToUtf8(CellAttribute(cells)));
}

// An empty cell is a value that is not given.
void CheckRow(const Reporter& reporter, const MfxXMLNode& row, const std::vector<CString>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i].IsEmpty()) CheckCellNumber(reporter, row, CellAttribute(i), cells[i]);
    CheckCellCount(reporter, row, cells.size());
    CheckForDialog(reporter, row, cells);
    CheckAllCellsRead(reporter, row, cells.size());
    CheckStrayText(reporter, row);
}

}  // namespace

void CheckDraftRows(const Reporter& reporter, const MfxXMLNode& parameter,
                    const MfxArray<MfxTableRow>& rows) {
    int index = 0;
    parameter.ForEachChild(kValueTag,
                           [&](const MfxXMLNode& row) { CheckRow(reporter, row, rows[index++].cells); });
}
