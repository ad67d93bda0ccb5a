#include "TableTexts.h"

#include "CsvReader.h"
#include "CsvText.h"
#include "DocumentError.h"
#include "EditError.h"
#include "Text.h"

#include <algorithm>

namespace {

TableTexts::Line LineOf(const CsvReader& reader) {
    return {static_cast<int>(reader.Line()), reader.Fields()};
}

// What is wrong with a record for itself, or beside the headings; empty when nothing is.
std::string FlawOf(const CsvReader& reader, const TableTexts& table) {
    if (!reader.Flaw().empty()) return reader.Flaw();
    if (table.headings.cells.empty()) return FindSeparatorFlaw(reader.Fields());
    const std::size_t expected = table.headings.cells.size();
    return reader.Fields().size() == expected
               ? ""
               : Count(reader.Fields().size(), "field") + " instead of " + std::to_string(expected);
}

}  // namespace

TableTexts ReadCsvTable(const std::string& file) {
    using enum DocumentError::Kind;
    const CString path = FromUtf8(file);
    TableTexts table{file, false, {}, {}};
    try {
        CsvReader reader(path);
        while (reader.Next()) {
            if (const std::string flaw = FlawOf(reader, table); !flaw.empty())
                throw CsvError(LinePrefix(path, static_cast<int>(reader.Line())) + flaw);
            if (table.headings.cells.empty())
                table.headings = LineOf(reader);
            else
                table.lines.push_back(LineOf(reader));
        }
    } catch (const CsvError& error) {
        throw DocumentError(Unreadable, error.what());
    }
    if (table.headings.cells.empty()) throw DocumentError(Unreadable, file + " is empty");
    return table;
}

TableTexts TableOfSheet(const std::string& file, const WorkbookTable& columns) {
    TableTexts table{file, true, {}, {}, columns};
    const std::size_t rowCount = columns.empty() ? 0 : columns.front().size();
    for (std::size_t row = 0; row < rowCount; ++row) {
        TableTexts::Line line{static_cast<int>(row) + 1};
        for (const auto& column : columns)
            line.cells.push_back(row < column.size() ? ToUtf8(column[row]) : "");
        (row == 0 ? table.headings : table.lines.emplace_back()) = std::move(line);
    }
    return table;
}

WorkbookTable ColumnsOf(const TableTexts& table) {
    if (table.isWorkbook) return table.columns;
    WorkbookTable columns(table.headings.cells.size());
    const auto add = [&](const TableTexts::Line& line) {
        for (std::size_t i = 0; i < columns.size(); ++i) columns[i].push_back(FromUtf8(line.cells[i]));
    };
    add(table.headings);
    std::ranges::for_each(table.lines, add);
    return columns;
}

std::string CellName(int line, std::size_t column) {
    return static_cast<char>('A' + column) + std::to_string(line);
}

void RefuseCell(const TableTexts& table, int line, std::size_t column, const std::string& reason) {
    if (table.isWorkbook) throw EditError(table.file + ": " + CellName(line, column) + ": " + reason);
    const bool isHeading = line == table.headings.number;
    RefuseLine(table, line, (isHeading ? "" : table.headings.cells[column] + ": ") + reason);
}

void RefuseLine(const TableTexts& table, int line, const std::string& reason) {
    if (table.isWorkbook) throw EditError(table.file + ": row " + std::to_string(line) + ": " + reason);
    throw EditError(LinePrefix(FromUtf8(table.file), line) + reason);
}
