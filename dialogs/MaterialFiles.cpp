#include "MaterialFiles.h"

#include "DialogTexts.h"
#include "FileDialogs.h"
#include "MaterialGroups.h"
#include "Text.h"
#include "XmlNumber.h"
#include "resource.h"

namespace {

constexpr int kLinesShown = 10;

bool WriteBytes(const CString& strPath, const std::string& bytes) {
    const HANDLE hFile = CreateFileW(strPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const bool bWritten =
        WriteFile(hFile, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
        written == bytes.size() && FlushFileBuffers(hFile);
    CloseHandle(hFile);
    return bWritten;
}

}  // namespace

IMaterialDatabase* FindMaterialDatabase() {
    const HMODULE hDatabase = FindDatabaseModule();
    const FARPROC address = hDatabase ? GetProcAddress(hDatabase, kDatabaseExport) : nullptr;
    return address ? reinterpret_cast<GetDatabaseFunction*>(reinterpret_cast<void (*)()>(address))()
                   : nullptr;
}

CString AskForMaterialFile(bool bToRead, CWnd* pParent) {
    const DWORD dwFlags = OFN_HIDEREADONLY | (bToRead ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT);
    const CString strFilter = LoadLocalizedString(IDS_MATERIALS_FILES) + L" (*.csv)|*.csv||";
    CFileDialog dialog(bToRead, L"csv", nullptr, dwFlags, strFilter, pParent);
    return AskForPath(dialog);
}

CString ImportMaterials(IMaterialDatabase& database, const CString& strPath) {
    CString strLines;
    int nLines = 0;
    MaterialImportEvents events;
    events.badLine = [&](std::uint64_t line, const std::string& flaw) {
        if (++nLines <= kLinesShown)
            strLines += FormatInteger(static_cast<std::int64_t>(line)) + L": " + FromUtf8(flaw) + L"\r\n";
    };
    events.progress = [](std::uint64_t, std::uint64_t) {};
    MaterialImportCounts counts;
    const MfxDatabaseResult result = database.ImportCsv(strPath, false, events, counts);
    if (result.problem == DatabaseRefused) return FormattedText(IDS_MATERIALS_NOT_IMPORTED, result.strText);
    if (result.problem) return GetProblemText(result);
    if (nLines > 0) return FormattedText(IDS_MATERIALS_BAD_LINES, FormatInteger(nLines), strLines);
    return FormattedText(IDS_MATERIALS_IMPORTED, FormatInteger(counts.added), FormatInteger(counts.changed),
                         FormatInteger(counts.unchanged));
}

CString ExportMaterials(IMaterialDatabase& database, const CString& strPath) {
    MaterialExportOptions options;
    options.hasByteOrderMark = true;  // by it spreadsheet programs know UTF-8
    std::string bytes;
    const MfxDatabaseResult result =
        database.ExportCsv(options, [&](std::string_view piece) { bytes += piece; });
    if (result.problem) return GetProblemText(result);
    CString strTemporary;  // of this program, or it would replace a file of the user's
    strTemporary.Format(L"%s.%lu.tmp", strPath.GetString(), GetCurrentProcessId());
    if (WriteBytes(strTemporary, bytes) &&
        MoveFileExW(strTemporary, strPath, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return CString();
    DeleteFileW(strTemporary);
    return FormattedText(IDS_MATERIALS_NOT_EXPORTED, strPath);
}
