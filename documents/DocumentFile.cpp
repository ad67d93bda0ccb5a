#include "DocumentFile.h"

#include "DocumentError.h"
#include "Text.h"

#include <algorithm>
#include <functional>

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
    explicit TemporaryFile(const CString& path) : m_strPath(path) {}
    ~TemporaryFile() {
        if (!m_strPath.IsEmpty()) DeleteFileW(m_strPath);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool MoveOver(const CString& target) {
        if (!MoveFileExW(m_strPath, target, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return false;
        m_strPath.Empty();
        return true;
    }

  private:
    CString m_strPath;
};

bool WriteAll(HANDLE hFile, const std::string& bytes) {
    constexpr std::size_t kBlock = 1 << 20;
    for (std::size_t done = 0; done < bytes.size();) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(kBlock, bytes.size() - done));
        if (!WriteFile(hFile, bytes.data() + done, size, &written, nullptr) || written == 0) return false;
        done += written;
    }
    return true;
}

// Whether the file goes away when it is closed, even if that is because the program was killed.
bool DeleteOnClose(HANDLE hFile, bool deletes) {
    FILE_DISPOSITION_INFO disposition{deletes};
    return SetFileInformationByHandle(hFile, FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

[[noreturn]] void ThrowUnwritable(const CString& path, const std::string& reason) {
    throw DocumentError(DocumentError::Kind::Unwritable, ToUtf8(path) + ": can't be written: " + reason);
}

bool HasAttribute(const CString& path, DWORD attribute) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute);
}

}  // namespace

FileFingerprint FingerprintOf(std::string_view bytes) {
    return {bytes.size(), std::hash<std::string_view>()(bytes)};
}

std::string ReadFileBytes(const CString& path) {
    const auto fail = [&](const std::string& reason) -> void {
        throw DocumentError(DocumentError::Kind::Unreadable, ToUtf8(path) + ": can't be read: " + reason);
    };
    if (IsFolder(path)) fail("it is a folder");

    // Nobody may write meanwhile: half of an old file and half of a new one could pass for a document.
    const FileHandle file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) fail(WindowsErrorText(GetLastError()));
    std::string bytes;
    char block[1 << 16];
    for (DWORD read = 1; read > 0;) {
        if (!ReadFile(file.Get(), block, sizeof block, &read, nullptr))
            fail(WindowsErrorText(GetLastError()));
        bytes.append(block, read);
    }
    return bytes;
}

void ReplaceFileBytes(const CString& path, const std::string& bytes) {
    if (IsFolder(path)) ThrowUnwritable(path, "it is a folder");
    // Moving a file over a read-only one succeeds on some systems.
    if (HasAttribute(path, FILE_ATTRIBUTE_READONLY)) ThrowUnwritable(path, "it is read-only");

    CString temporaryPath;
    HANDLE hFile = INVALID_HANDLE_VALUE;
    for (int i = 0; hFile == INVALID_HANDLE_VALUE; ++i) {
        temporaryPath.Format(L"%s.%lu-%d.tmp", path.GetString(), GetCurrentProcessId(), i);
        hFile = CreateFileW(temporaryPath, GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
        if (hFile == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS)
            ThrowUnwritable(path, WindowsErrorText(GetLastError()));
    }
    FileHandle file(hFile);
    TemporaryFile temporary(temporaryPath);
    DeleteOnClose(file.Get(), true);  // a file system that can't do so may keep it
    if (!WriteAll(file.Get(), bytes) || !FlushFileBuffers(file.Get()) || !DeleteOnClose(file.Get(), false) ||
        !file.Close()) {
        const DWORD error = GetLastError();
        file.Close();  // an open file can't be deleted
        ThrowUnwritable(path, WindowsErrorText(error));
    }
    if (!temporary.MoveOver(path)) ThrowUnwritable(path, WindowsErrorText(GetLastError()));
}

void ThrowIfFileChanged(const CString& path, const FileFingerprint& expected) {
    if (!FileExists(path) || FingerprintOf(ReadFileBytes(path)) != expected)
        throw DocumentError(DocumentError::Kind::ChangedMeanwhile,
                            ToUtf8(path) + " was changed by another program meanwhile; nothing was saved");
}

bool FileExists(const CString& path) {
    return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

bool IsFolder(const CString& path) {
    return HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}
