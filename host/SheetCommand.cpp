#include "SheetCommand.h"

#include "FaultText.h"
#include "File.h"
#include "JsonOutput.h"
#include "Text.h"
#include "TextTable.h"
#include "WorkbookReader.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

bool IsColumn(const std::wstring& letters) {
    constexpr std::size_t kMostLetters = 3;
    return !letters.empty() && letters.size() <= kMostLetters &&
           letters.find_first_not_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ") == letters.npos;
}

WorkbookColumns ParseColumns(CString strColumns) {
    strColumns.MakeUpper();
    WorkbookColumns columns;
    std::wistringstream list((strColumns + L",").GetString());  // or an empty end would be lost
    for (std::wstring letters; std::getline(list, letters, L',');) columns.push_back(letters);
    if (columns.front() != L"A" || !std::ranges::all_of(columns, IsColumn))
        throw HostError(ExitCode::Usage, "--columns: " + Quoted(strColumns) +
                                             " is not a list of column letters that begins with A: A,B,C");
    return columns;
}

// The words of the module or of the .xlsx reader, or else the program's own.
std::string Reason(WorkbookFault fault, const CString& strReaderError) {
    if (HasText(fault)) return ToUtf8(LoadFaultText(fault));
    if (!strReaderError.IsEmpty()) return ToUtf8(strReaderError);
    if (fault == WorkbookFault::ReaderMissing)
        return "the library that reads .xlsx files is missing or damaged; install the program again";
    if (fault == WorkbookFault::CellUnreadable)
        return "a cell can't be read; Excel was not told to close the workbook and to end";
    return fault == WorkbookFault::ExcelNotQuit ? "Excel does not end" : "can't be read";
}

WorkbookTable ReadTable(const CString& strBook, const WorkbookColumns& columns) {
    const std::string book = ToUtf8(strBook) + ": ";
    if (IsFolder(strBook)) throw HostError(ExitCode::UnreadableInput, book + "can't be read: it is a folder");
    // Excel has a current folder of its own.
    const CString strPath = std::filesystem::absolute(strBook.GetString()).make_preferred().c_str();
    WorkbookTable table;
    CString strReaderError;
    const WorkbookFault fault = ReadWorkbook(strPath, columns, table, strReaderError);
    if (fault == WorkbookFault::None) return table;
    const bool bMissing = fault == WorkbookFault::ExcelNotInstalled ||
                          fault == WorkbookFault::ExcelNotStarted || fault == WorkbookFault::ReaderMissing;
    throw HostError(bMissing ? ExitCode::Missing : ExitCode::UnreadableInput,
                    book + Reason(fault, strReaderError));
}

// A very long text is cut, or the table could not be read; --json has all of it.
void PrintTable(const WorkbookColumns& columns, const WorkbookTable& table) {
    using Align = TextTable::Align;
    std::vector<Align> alignments(columns.size() + 1, Align::Left);
    alignments.front() = Align::Right;
    TextTable text(alignments);
    std::vector<std::string> row{""};
    for (const std::wstring& letters : columns) row.push_back(ToUtf8(letters.c_str()));
    text.Add(row);
    for (std::size_t nRow = 0; nRow < table.front().size(); ++nRow) {
        row.assign(1, std::to_string(nRow + 1));
        for (const auto& cells : table) row.push_back(nRow < cells.size() ? Shortened(cells[nRow]) : "");
        text.Add(row);
    }
    Print(text.Format(2));
}

}  // namespace

ExitCode PrintSheet(const SheetOptions& options) {
    const WorkbookColumns columns = ParseColumns(options.strColumns);
    const WorkbookTable table = ReadTable(options.strBook, columns);
    const std::string book = ToUtf8(options.strBook);
    if (!options.bJson) {
        Print(book + ": " + Count(table.front().size(), "row") + "\n");
        PrintTable(columns, table);
        return ExitCode::Done;
    }
    constexpr int kJsonVersion = 1;
    Json json{{"version", kJsonVersion}, {"file", book}, {"columns", Json::array()}};
    for (std::size_t i = 0; i < columns.size(); ++i)
        json["columns"].push_back(
            {{"column", ToUtf8(columns[i].c_str())}, {"cells", ToArray(table[i], ToUtf8)}});
    PrintJson(json);
    return ExitCode::Done;
}
