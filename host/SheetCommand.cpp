#include "Commands.h"
#include "Console.h"
#include "JsonOutput.h"
#include "Text.h"
#include "TextTable.h"
#include "WorkbookInput.h"

#include <algorithm>
#include <memory>
#include <sstream>

namespace {

struct SheetOptions {
    std::string book;
    std::string columns = "A,B,C,D,E";  // letters, with commas between them
    bool isJson = false;
};

bool IsColumn(const std::wstring& letters) {
    constexpr std::size_t kMostLetters = 3;
    return !letters.empty() && letters.size() <= kMostLetters &&
           letters.find_first_not_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ") == letters.npos;
}

WorkbookColumns ParseColumns(CString list) {
    list.MakeUpper();
    WorkbookColumns columns;
    std::wistringstream stream((list + L",").GetString());  // or an empty end would be lost
    for (std::wstring letters; std::getline(stream, letters, L',');) columns.push_back(letters);
    if (columns.front() != L"A" || !std::ranges::all_of(columns, IsColumn))
        throw CommandError(
            ExitCode::WrongUsage,
            "--columns: " + Quoted(list) + " is not a list of column letters that begins with A: A,B,C");
    return columns;
}

// Long texts are cut so that the table stays readable; --json has them whole.
std::vector<std::string> MakeRow(const WorkbookTable& table, std::size_t row) {
    std::vector<std::string> cells{std::to_string(row + 1)};
    for (const auto& texts : table) cells.push_back(row < texts.size() ? Shortened(texts[row]) : "");
    return cells;
}

// "5 rows of the sheet \"Angles\"", and why there are none.
std::string RowsText(std::size_t rowCount, const WorkbookSheet& sheet) {
    std::string text = Count(rowCount, "row");
    if (!sheet.strName.IsEmpty()) text += " of the sheet " + Quoted(sheet.strName);
    if (!sheet.bHasCells) return text + ", which has no cells: it is a chart or a dialog";
    return text + (rowCount ? "" : ": its cell A1 is empty, and column A says how many rows there are");
}

// Row by row: the lines of a whole sheet would take as much memory as the table again.
void PrintTable(const WorkbookColumns& columns, const WorkbookTable& table) {
    using Align = TextTable::Align;
    constexpr int kIndent = 2;
    std::vector<Align> alignments(columns.size() + 1, Align::Left);
    alignments.front() = Align::Right;
    TextTable text(alignments);
    std::vector<std::string> header{""};
    for (const std::wstring& letters : columns) header.push_back(ToUtf8(letters.c_str()));
    text.Measure(header);
    const std::size_t rowCount = table.front().size();
    for (std::size_t row = 0; row < rowCount; ++row) text.Measure(MakeRow(table, row));
    Print(text.FormatRow(header, kIndent));
    for (std::size_t row = 0; row < rowCount; ++row) Print(text.FormatRow(MakeRow(table, row), kIndent));
}

// As PrintJson would, but cell by cell: all of them as JSON would take several times the table's memory.
void PrintSheetAsJson(const std::string& book, const WorkbookSheet& sheet, const WorkbookColumns& columns,
                      const WorkbookTable& table) {
    const auto quoted = [](const std::string& text) {
        return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    Print("{\n  \"version\": 1,\n  \"file\": " + quoted(book) + ",\n  \"sheet\": " +
          (sheet.strName.IsEmpty() ? "null" : quoted(ToUtf8(sheet.strName))) + ",\n  \"columns\": [");
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Print(i == 0 ? "\n    {" : ",\n    {");
        Print("\n      \"column\": " + quoted(ToUtf8(columns[i].c_str())) + ",\n      \"cells\": [");
        const char* separator = "";
        for (const CString& text : table[i]) {
            Print(separator + ("\n        " + quoted(ToUtf8(text))));
            separator = ",";
        }
        Print(table[i].empty() ? "]\n    }" : "\n      ]\n    }");
    }
    Print("\n  ]\n}\n");
}

ExitCode PrintSheet(const SheetOptions& options) {
    const WorkbookColumns columns = ParseColumns(FromUtf8(options.columns));
    WorkbookSheet sheet;
    const WorkbookTable table = ReadWorkbookTable(FromUtf8(options.book), columns, sheet);
    if (options.isJson) {
        PrintSheetAsJson(options.book, sheet, columns, table);
    } else {
        Print(options.book + ": " + RowsText(table.front().size(), sheet) + "\n");
        PrintTable(columns, table);
    }
    return ExitCode::Done;
}

}  // namespace

void AddSheet(CommandLine& commandLine) {
    const auto options = std::make_shared<SheetOptions>();
    CLI::App& command =
        commandLine.Add("sheet", "Print what an import of a workbook's columns reads",
                        {"mfxhost sheet angles.xlsx", "mfxhost sheet angles.xlsx --columns A,C --json"},
                        [options](const RuleModule&) { return PrintSheet(*options); });
    AddFile(command, "BOOK", options->book, "Workbook to read; its folder gets a file MFX.log for a moment")
        ->required();
    command
        .add_option("--columns", options->columns,
                    "Letters of the columns; A, the first, decides how many rows there are")
        ->type_name("A,B,C")
        ->capture_default_str();
    command.add_flag("--json", options->isJson, "Print them as JSON");
}
