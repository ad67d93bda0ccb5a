// The sheet that the table of size bands with draft angles is imported from. Needs no windows.
//
//     H1     H2     A1    A2    A3
//     0      25.4   3     3     1.5
//     25.4          1.5   2.5
//
// Columns A to E: lower and upper bound, first, second and third draft angle. The first row must read as
// above. Each further row is a band, as CheckDraftTable takes it; numbers are in the rule's units, with a
// decimal point where they are texts.
#pragma once

#include "DraftTableCheck.h"
#include "WorkbookTable.h"

// Columns to read for it.
inline const WorkbookColumns kDraftSheetColumns = {L"A", L"B", L"C", L"D", L"E"};

inline constexpr const char* kDraftSheetHeadings[DraftCell::Count] = {"H1", "H2", "A1", "A2", "A3"};

inline constexpr std::size_t kMostDraftBands = 200;

enum class DraftSheetFault { None, WrongHeadings, UnevenColumns, TooManyBands, NoNumber, RefusedTable };

struct DraftSheet {
    DraftSheetFault fault = DraftSheetFault::None;
    // The bands, or why the table is refused. Its row is that of the sheet, where the headings are row 1.
    DraftTableResult table;
    CString strCell, strText;  // NoNumber: the cell ("B3") and what stands there
};

// Turns the columns of a sheet into bands, or says why they are none.
DraftSheet ReadDraftSheet(const WorkbookTable& columns);
