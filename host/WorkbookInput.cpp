#include "WorkbookInput.h"

#include "DocumentFile.h"
#include "ExitCode.h"
#include "FaultText.h"
#include "FullPath.h"
#include "Text.h"
#include "WorkbookReader.h"

namespace {

// The words of the module or of the .xlsx reader, or else the program's own.
std::string Reason(WorkbookFault fault, const CString& readerError) {
    if (HasText(fault)) return ToUtf8(LoadFaultText(fault));
    if (!readerError.IsEmpty()) return ToUtf8(readerError);
    if (fault == WorkbookFault::ReaderMissing)
        return "the library that reads .xlsx files is missing or damaged; install the program again";
    if (fault == WorkbookFault::CellUnreadable)
        return "a cell can't be read; Excel was not told to close the workbook and to end";
    return fault == WorkbookFault::ExcelNotQuit ? "Excel does not end" : "can't be read";
}

// Whether it is no workbook, whatever Excel, or its absence, has to say of it.
bool IsNoWorkbook(WorkbookFault fault, const CString& path) {
    const bool isNotOpened = fault == WorkbookFault::NotOpened || fault == WorkbookFault::ReaderFailed ||
                             fault == WorkbookFault::ExcelNotInstalled;
    return isNotOpened && IsOtherThanWorkbook(path);
}

}  // namespace

WorkbookTable ReadWorkbookTable(const CString& bookPath, const WorkbookColumns& columns,
                                WorkbookSheet& sheet) {
    const std::string book = ToUtf8(bookPath) + ": ";
    if (IsFolder(bookPath))
        throw CommandError(ExitCode::UnreadableInput, book + "can't be read: it is a folder");
    // Excel has a current folder of its own.
    const CString path = FullPath(bookPath);
    WorkbookTable table;
    CString readerError;
    const WorkbookFault fault = ReadWorkbook(path, columns, table, readerError, &sheet);
    if (fault == WorkbookFault::None) return table;
    if (IsNoWorkbook(fault, path))
        throw CommandError(ExitCode::UnreadableInput, book + "it is no workbook (.xlsx, .xls)");
    const bool isMissing = fault == WorkbookFault::ExcelNotInstalled ||
                           fault == WorkbookFault::ExcelNotStarted || fault == WorkbookFault::ReaderMissing;
    throw CommandError(isMissing ? ExitCode::NotPossible : ExitCode::UnreadableInput,
                       book + Reason(fault, readerError));
}
