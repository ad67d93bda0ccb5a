// Files as a whole: read at once, and replaced so that a failure leaves the old one.
#pragma once

#include <afx.h>

#include <string>
#include <string_view>

// Size and hash of a file's bytes, to notice a change.
struct FileFingerprint {
    std::size_t size = 0;
    std::size_t hash = 0;
    bool operator==(const FileFingerprint&) const = default;
};
FileFingerprint FingerprintOf(std::string_view bytes);

// The bytes of a file. Throws DocumentError (Unreadable) that names the file and the reason.
std::string ReadFileBytes(const CString& path);

// Replaces the file by the bytes, or creates it. They are written to a temporary file in the same folder,
// flushed, and moved over the old file, which stays whole whenever a step fails. Where the path is a link,
// the file that it leads to is replaced. With a fingerprint nothing is written unless the file still has that
// content; programs that replace a file by this function wait for each other, so that none undoes what
// another has just written. Throws DocumentError that names the file and the reason: Unwritable or
// ChangedMeanwhile.
void ReplaceFileBytes(const CString& path, const std::string& bytes,
                      const FileFingerprint* expected = nullptr);

// Throws DocumentError (Unwritable) when ReplaceFileBytes would find the file unwritable now.
void ThrowIfUnwritable(const CString& path);

// Whether both are names of one file or folder, as far as their spelling tells.
bool IsSamePath(const CString& first, const CString& second);

// Tells folders apart that have several names; zeros when the folder can't be opened.
struct FolderIdentity {
    DWORD volume = 0, indexHigh = 0, indexLow = 0;
    auto operator<=>(const FolderIdentity&) const = default;
};
FolderIdentity IdentityOf(const CString& folder);

// Whether there is a file or folder of that name, and whether it is a folder.
bool FileExists(const CString& path);
bool IsFolder(const CString& path);
