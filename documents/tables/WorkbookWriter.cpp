#include "WorkbookWriter.h"

#include "DocumentError.h"
#include "DocumentFile.h"
#include "Text.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace {

[[noreturn]] void ThrowUnwritable(lxw_error error) {
    throw DocumentError(DocumentError::Kind::Unwritable,
                        "the workbook can't be made: " + std::string(lxw_strerror(error)));
}

void Require(lxw_error error) {
    if (error != LXW_NO_ERROR) ThrowUnwritable(error);
}

// The library writes files alone. This one is deleted when it was read.
class TemporaryFile {
  public:
    TemporaryFile()
        : m_path(std::filesystem::temp_directory_path() /
                 ("mfxhost-" + std::to_string(GetCurrentProcessId()) + ".xlsx")) {}
    ~TemporaryFile() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    CString Path() const { return m_path.c_str(); }

  private:
    std::filesystem::path m_path;
};

struct WorkbookFreer {
    void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
};
using WorkbookPtr = std::unique_ptr<lxw_workbook, WorkbookFreer>;

// The time of making it would make every workbook another one.
void SetFixedTime(lxw_workbook* workbook) {
    constexpr std::time_t kFirstOf1980 = 315532800;  // the first day that zip archives know
    lxw_doc_properties properties{};
    properties.created = kFirstOf1980;
    Require(workbook_set_properties(workbook, &properties));
}

void WriteCell(lxw_worksheet* sheet, std::size_t row, std::size_t column, const ValueContent& content) {
    const auto rowNumber = static_cast<lxw_row_t>(row);
    const auto columnNumber = static_cast<lxw_col_t>(column);
    if (const double* number = std::get_if<double>(&content))
        Require(worksheet_write_number(sheet, rowNumber, columnNumber, *number, nullptr));
    else if (const std::string* text = std::get_if<std::string>(&content))
        Require(worksheet_write_string(sheet, rowNumber, columnNumber, text->c_str(), nullptr));
}

void WriteTable(lxw_worksheet* sheet, const ExportedTable& table) {
    constexpr std::size_t kLeastWidth = 10;  // characters
    for (std::size_t column = 0; column < table.headings.size(); ++column) {
        WriteCell(sheet, 0, column, table.headings[column]);
        const auto number = static_cast<lxw_col_t>(column);
        const auto width = static_cast<double>(std::max(table.headings[column].size() + 2, kLeastWidth));
        Require(worksheet_set_column(sheet, number, number, width, nullptr));
        for (std::size_t row = 0; row < table.lines.size(); ++row)
            WriteCell(sheet, row + 1, column, table.lines[row][column]);
    }
}

}  // namespace

std::string FormatWorkbook(const ExportedTable& table) {
    const TemporaryFile file;
    WorkbookPtr workbook(workbook_new(ToUtf8(file.Path()).c_str()));
    if (!workbook) ThrowUnwritable(LXW_ERROR_MEMORY_MALLOC_FAILED);
    SetFixedTime(workbook.get());
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook.get(), table.name.c_str());
    if (!sheet) ThrowUnwritable(LXW_ERROR_MEMORY_MALLOC_FAILED);
    WriteTable(sheet, table);
    Require(workbook_close(workbook.release()));  // frees it, too
    return ReadFileBytes(file.Path());
}
