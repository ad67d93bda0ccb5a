#include "File.h"

#include "HostError.h"
#include "Text.h"

#include <algorithm>

namespace {

class FileHandle {
  public:
    explicit FileHandle(HANDLE hFile) : m_hFile(hFile) {}
    ~FileHandle() { Close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool IsOpen() const { return m_hFile != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_hFile; }
    bool Close() {
        const HANDLE hFile = m_hFile;
        m_hFile = INVALID_HANDLE_VALUE;
        return hFile == INVALID_HANDLE_VALUE || CloseHandle(hFile) != 0;
    }

  private:
    HANDLE m_hFile;
};

// Deletes the temporary file unless it became the real one.
class TemporaryFile {
  public:
    explicit TemporaryFile(const CString& strPath) : m_strPath(strPath) {}
    ~TemporaryFile() {
        if (!m_strPath.IsEmpty()) DeleteFileW(m_strPath);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool MoveOver(const CString& strTarget) {
        if (!MoveFileExW(m_strPath, strTarget, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return false;
        m_strPath.Empty();
        return true;
    }

  private:
    CString m_strPath;
};

bool WriteAll(HANDLE hFile, const std::string& bytes) {
    constexpr std::size_t kBlock = 1 << 20;
    for (std::size_t done = 0; done < bytes.size();) {
        DWORD dwWritten = 0;
        const auto nBlock = static_cast<DWORD>(std::min(kBlock, bytes.size() - done));
        if (!WriteFile(hFile, bytes.data() + done, nBlock, &dwWritten, nullptr) || dwWritten == 0)
            return false;
        done += dwWritten;
    }
    return true;
}

// Whether the file goes away when it is closed, even if that is because the program was killed.
bool DeleteOnClose(HANDLE hFile, bool bDelete) {
    FILE_DISPOSITION_INFO disposition{bDelete};
    return SetFileInformationByHandle(hFile, FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

[[noreturn]] void ThrowUnwritable(const CString& strPath, const std::string& reason) {
    throw HostError(ExitCode::Missing, ToUtf8(strPath) + ": can't be written: " + reason);
}

bool HasAttribute(const CString& strPath, DWORD dwAttribute) {
    const DWORD dwAttributes = GetFileAttributesW(strPath);
    return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & dwAttribute);
}

}  // namespace

std::string ReadFileBytes(const CString& strPath) {
    const auto fail = [&](const std::string& reason) -> void {
        throw HostError(ExitCode::UnreadableInput, ToUtf8(strPath) + ": can't be read: " + reason);
    };
    if (IsFolder(strPath)) fail("it is a folder");

    // Nobody may write meanwhile: half of an old file and half of a new one could pass for a document.
    const FileHandle file(CreateFileW(strPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) fail(WindowsErrorText(GetLastError()));
    std::string bytes;
    char block[1 << 16];
    for (DWORD dwRead = 1; dwRead > 0;) {
        if (!ReadFile(file.Get(), block, sizeof block, &dwRead, nullptr))
            fail(WindowsErrorText(GetLastError()));
        bytes.append(block, dwRead);
    }
    return bytes;
}

void ReplaceFileBytes(const CString& strPath, const std::string& bytes) {
    if (IsFolder(strPath)) ThrowUnwritable(strPath, "it is a folder");
    // Moving a file over a read-only one succeeds on some systems.
    if (HasAttribute(strPath, FILE_ATTRIBUTE_READONLY)) ThrowUnwritable(strPath, "it is read-only");

    CString strTemporary;
    HANDLE hFile = INVALID_HANDLE_VALUE;
    for (int i = 0; hFile == INVALID_HANDLE_VALUE; ++i) {
        strTemporary.Format(L"%s.%lu-%d.tmp", strPath.GetString(), GetCurrentProcessId(), i);
        hFile = CreateFileW(strTemporary, GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
        if (hFile == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS)
            ThrowUnwritable(strPath, WindowsErrorText(GetLastError()));
    }
    FileHandle file(hFile);
    TemporaryFile temporary(strTemporary);
    DeleteOnClose(file.Get(), true);  // a file system that can't do so may keep it
    if (!WriteAll(file.Get(), bytes) || !FlushFileBuffers(file.Get()) || !DeleteOnClose(file.Get(), false) ||
        !file.Close()) {
        const DWORD dwError = GetLastError();
        file.Close();  // an open file can't be deleted
        ThrowUnwritable(strPath, WindowsErrorText(dwError));
    }
    if (!temporary.MoveOver(strPath)) ThrowUnwritable(strPath, WindowsErrorText(GetLastError()));
}

bool FileExists(const CString& strPath) {
    return GetFileAttributesW(strPath) != INVALID_FILE_ATTRIBUTES;
}

bool IsFolder(const CString& strPath) {
    return HasAttribute(strPath, FILE_ATTRIBUTE_DIRECTORY);
}
