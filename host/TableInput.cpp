#include "TableInput.h"

#include "FileArguments.h"
#include "Text.h"
#include "WorkbookInput.h"

namespace {

bool HasEnding(const std::string& file, std::string_view ending) {
    return file.size() > ending.size() &&
           IsSameWord(std::string_view(file).substr(file.size() - ending.size()), ending);
}

}  // namespace

TableKind KindOfTable(const std::string& file) {
    if (file == kStandardStream || HasEnding(file, ".csv")) return TableKind::Csv;
    return HasEnding(file, ".xlsx") ? TableKind::Xlsx : TableKind::OtherWorkbook;
}

TableTexts ReadCsv(const std::string& file) {
    if (file == kStandardStream) ClaimStandardInput();
    return ReadCsvTable(file);
}

TableTexts ReadTable(const std::string& file, const WorkbookColumns& columns) {
    if (KindOfTable(file) == TableKind::Csv) return ReadCsv(file);
    WorkbookSheet sheet;
    return TableOfSheet(file, ReadWorkbookTable(FromUtf8(file), columns, sheet));
}
