#include "DocumentFile.h"

#include "DocumentError.h"
#include "FullPath.h"
#include "Text.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class FileHandle {
  public:
    explicit FileHandle(HANDLE hFile) : m_hFile(hFile) {}
    ~FileHandle() { Close(); }
    FileHandle(FileHandle&& other) noexcept : m_hFile(std::exchange(other.m_hFile, INVALID_HANDLE_VALUE)) {}
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

// Whether the file is to be deleted when it is closed, even if that is because the program was killed. Some
// file systems can't do so.
bool SetDeletedOnClose(HANDLE hFile, bool isDeleted) {
    FILE_DISPOSITION_INFO disposition{isDeleted};
    return SetFileInformationByHandle(hFile, FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

[[noreturn]] void ThrowUnwritable(const CString& path, const std::string& reason) {
    throw DocumentError(DocumentError::Kind::Unwritable, ToUtf8(path) + ": can't be written: " + reason);
}

bool HasAttribute(const CString& path, DWORD attribute) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute);
}

void ThrowIfNoTarget(const CString& path) {
    if (IsFolder(path)) ThrowUnwritable(path, "it is a folder");
    // Moving a file over a read-only one succeeds on some systems.
    if (HasAttribute(path, FILE_ATTRIBUTE_READONLY)) ThrowUnwritable(path, "it is read-only");
}

// A file that is saved: by the name that the user knows, and where it lies if that is a link's.
struct SavedFile {
    explicit SavedFile(const CString& path) : name(path), place(FollowLinks(path)) {}

    const CString name, place;

  private:
    static CString FollowLinks(const CString& path) {
        const FileHandle file(CreateFileW(path, 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
        if (!file.IsOpen()) return path;
        std::wstring place(GetFinalPathNameByHandleW(file.Get(), nullptr, 0, 0), L'\0');
        const auto size = static_cast<DWORD>(place.size());
        const DWORD length = GetFinalPathNameByHandleW(file.Get(), place.data(), size, 0);
        return length > 0 && length < size ? CString(place.c_str()) : path;
    }
};

// Calls attempt() until it succeeds, for some time when another program is in the way. False, with the reason
// as last error, when it does not.
template <class Attempt>
bool Retry(DWORD longestWaitMs, Attempt attempt) {
    constexpr DWORD kPauseMs = 20;
    for (DWORD waitedMs = 0;; waitedMs += kPauseMs) {
        if (attempt()) return true;
        const DWORD error = GetLastError();
        const bool isInUse = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isInUse || waitedMs >= longestWaitMs) return false;
        Sleep(kPauseMs);
        SetLastError(error);
    }
}
constexpr DWORD kShortWaitMs = 500;  // virus scanners hold a file for a moment

// A new file beside the one that it is to replace. It goes away with the object unless it was moved, also
// when the program is killed.
class TemporaryFile {
  public:
    explicit TemporaryFile(const SavedFile& target)
        : m_file(Create(target)), m_isDeletedOnClose(SetDeletedOnClose(m_file.Get(), true)) {}
    ~TemporaryFile() {
        m_file.Close();  // an open file can't be deleted
        if (!m_isMoved) DeleteFileW(m_strPath);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // Writes all of the file. False, with the reason as last error, when that fails.
    bool Write(const std::string& bytes) {
        return WriteAll(m_file.Get(), bytes) && FlushFileBuffers(m_file.Get()) &&
               (!m_isDeletedOnClose || SetDeletedOnClose(m_file.Get(), false)) && m_file.Close();
    }

    bool MoveOver(const SavedFile& target) {
        m_isMoved = Retry(kShortWaitMs, [&] {
            return MoveFileExW(m_strPath, target.place, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
                   0;
        });
        return m_isMoved;
    }

  private:
    HANDLE Create(const SavedFile& target) {
        for (int i = 0;; ++i) {
            m_strPath.Format(L"%s.%lu-%d.tmp", target.place.GetString(), GetCurrentProcessId(), i);
            const HANDLE hFile = CreateFileW(m_strPath, GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                             FILE_ATTRIBUTE_NORMAL, nullptr);
            if (hFile != INVALID_HANDLE_VALUE) return hFile;
            if (GetLastError() != ERROR_FILE_EXISTS)
                ThrowUnwritable(target.name, WindowsErrorText(GetLastError()));
        }
    }

    CString m_strPath;
    FileHandle m_file;
    bool m_isDeletedOnClose;
    bool m_isMoved = false;
};

// Keeps other programs that replace the file from doing so for the life of the handle: a file beside it,
// which goes away with the handle, however the program ends. Unlike a mutex it works between sessions and
// machines.
FileHandle LockForSaving(const SavedFile& file) {
    constexpr DWORD kLongestWaitMs = 30'000;
    HANDLE hLock = INVALID_HANDLE_VALUE;
    const auto lock = [&] {
        hLock = CreateFileW(file.place + L".mfx-lock", GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        return hLock != INVALID_HANDLE_VALUE;
    };
    // "Access denied" is also the answer of a folder that can't be written.
    if (!Retry(kShortWaitMs, lock) &&
        (GetLastError() != ERROR_SHARING_VIOLATION || !Retry(kLongestWaitMs, lock)))
        ThrowUnwritable(file.name, WindowsErrorText(GetLastError()));
    return FileHandle(hLock);
}

void ThrowIfChanged(const CString& path, const FileFingerprint& expected) {
    bool isChanged = true;
    try {
        isChanged = FingerprintOf(ReadFileBytes(path)) != expected;
    } catch (const DocumentError&) {
        // It is gone, or held by another program, which is about to change it.
    }
    if (isChanged)
        throw DocumentError(DocumentError::Kind::ChangedMeanwhile,
                            ToUtf8(path) + " was changed by another program meanwhile; nothing was saved");
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

void ThrowIfUnwritable(const CString& path) {
    ThrowIfNoTarget(path);
    const TemporaryFile temporary{SavedFile(path)};
    const FileHandle old(CreateFileW(path, DELETE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!old.IsOpen() && FileExists(path)) ThrowUnwritable(path, WindowsErrorText(GetLastError()));
}

void ReplaceFileBytes(const CString& path, const std::string& bytes, const FileFingerprint* expected) {
    ThrowIfNoTarget(path);
    const SavedFile file(path);
    const FileHandle lock = LockForSaving(file);
    if (expected) ThrowIfChanged(path, *expected);
    TemporaryFile temporary(file);
    if (!temporary.Write(bytes) || !temporary.MoveOver(file))
        ThrowUnwritable(path, WindowsErrorText(GetLastError()));
}

bool IsSamePath(const CString& first, const CString& second) {
    return FullPath(first).CompareNoCase(FullPath(second)) == 0;
}

FolderIdentity IdentityOf(const CString& folder) {
    const FileHandle handle(
        CreateFileW(folder, 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (handle.IsOpen()) GetFileInformationByHandle(handle.Get(), &information);
    return {information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow};
}

bool FileExists(const CString& path) {
    return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

bool IsFolder(const CString& path) {
    return HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}
