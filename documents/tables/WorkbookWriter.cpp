#include "WorkbookWriter.h"

#include "DocumentError.h"
#include "DocumentFile.h"
#include "Text.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <ctime>
#include <memory>

namespace {

[[noreturn]] void ThrowUnwritable(lxw_error error) {
    throw DocumentError(DocumentError::Kind::Unwritable,
                        "the workbook can't be made: " + std::string(lxw_strerror(error)));
}

void Require(lxw_error error) {
    if (error != LXW_NO_ERROR) ThrowUnwritable(error);
}

std::wstring CurrentFolder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

std::wstring TemporaryFolder() {
    wchar_t folder[MAX_PATH + 1];
    return {folder, GetTempPathW(std::size(folder), folder)};
}

// A file in the temporary folder, which is the current one meanwhile: the library writes files alone, and
// finds no folder for their parts whose name has characters of another language.
class TemporaryFile {
  public:
    TemporaryFile() : m_folderBefore(CurrentFolder()), m_path(TemporaryFolder()) {
        if (!SetCurrentDirectoryW(m_path.c_str()))
            throw DocumentError(DocumentError::Kind::Unwritable,
                                "the workbook can't be made in the temporary folder " +
                                    ToUtf8(m_path.c_str()) + ": " + WindowsErrorText(GetLastError()));
        m_path += L"mfxhost-" + std::to_wstring(GetCurrentProcessId()) + L".xlsx";
    }
    ~TemporaryFile() {
        DeleteFileW(m_path.c_str());
        SetCurrentDirectoryW(m_folderBefore.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    CString Path() const { return m_path.c_str(); }

  private:
    std::wstring m_folderBefore, m_path;
};

// At least the size of all files that the library makes for the table.
std::size_t RoomFor(const ExportedTable& table) {
    constexpr std::size_t kParts = 1 << 16, kCell = 128, kCharacter = 12;  // a & takes five characters, twice
    std::size_t room = kParts;
    for (const std::vector<ValueContent>& line : table.lines)
        for (const ValueContent& content : line) {
            const std::string* text = std::get_if<std::string>(&content);
            room += kCell + (text ? text->size() * kCharacter : 0);
        }
    return room;
}

struct WorkbookFreer {
    void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
};
using WorkbookPtr = std::unique_ptr<lxw_workbook, WorkbookFreer>;

lxw_workbook* NewWorkbook(const CString& path) {
    char folder[] = ".";
    lxw_workbook_options options{.constant_memory = LXW_FALSE, .tmpdir = folder, .use_zip64 = LXW_FALSE};
    return workbook_new_opt(ToUtf8(path).c_str(), &options);
}

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
    // The library does not notice when a full disk cuts its files off.
    ReplaceFileBytes(file.Path(), std::string(RoomFor(table), '\0'));
    WorkbookPtr workbook(NewWorkbook(file.Path()));
    if (!workbook) ThrowUnwritable(LXW_ERROR_MEMORY_MALLOC_FAILED);
    SetFixedTime(workbook.get());
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook.get(), table.name.c_str());
    if (!sheet) ThrowUnwritable(LXW_ERROR_MEMORY_MALLOC_FAILED);
    WriteTable(sheet, table);
    Require(workbook_close(workbook.release()));  // frees it, too
    return ReadFileBytes(file.Path());
}
