// Files as a whole: read at once, and replaced so that a failure leaves the old one.
#pragma once

#include <afx.h>

#include <string>
#include <string_view>

// Tells whether two contents are the same without keeping them.
struct FileFingerprint {
    std::size_t size = 0;
    std::size_t hash = 0;
    bool operator==(const FileFingerprint&) const = default;
};
FileFingerprint FingerprintOf(std::string_view bytes);

// The bytes of a file. Throws DocumentError (Unreadable) that names the file and the reason.
std::string ReadFileBytes(const CString& path);

// Replaces the file by the bytes, or creates it: they are written to a temporary file in the same folder,
// flushed, and moved over the old file, which stays whole whenever a step fails. Throws DocumentError
// (Unwritable) that names the file and the reason.
void ReplaceFileBytes(const CString& path, const std::string& bytes);

// Throws DocumentError (Unwritable) when ReplaceFileBytes could not write that file now.
void ThrowIfUnwritable(const CString& path);

// Throws DocumentError (ChangedMeanwhile) unless the file still has that content.
void ThrowIfFileChanged(const CString& path, const FileFingerprint& expected);

// Keeps other programs that save by this class from the file for the life of the object: of two that have
// read it, the second one to save sees what the first one wrote. Throws DocumentError (Unwritable) when
// another program keeps it for half a minute.
class SavingLock {
  public:
    explicit SavingLock(const CString& path);
    ~SavingLock();
    SavingLock(const SavingLock&) = delete;
    SavingLock& operator=(const SavingLock&) = delete;

  private:
    HANDLE m_hMutex;
};

bool FileExists(const CString& path);
bool IsFolder(const CString& path);
