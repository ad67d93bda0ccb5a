#pragma once

#include <afx.h>

#include <string>

// The bytes of a file. Throws HostError (UnreadableInput) that names the file and the reason.
std::string ReadFileBytes(const CString& strPath);

// Replaces the file by the bytes, or creates it: they are written to a temporary file in the same folder,
// flushed, and moved over the old file, which stays whole whenever a step fails. Throws HostError (Missing)
// that names the file and the reason.
void ReplaceFileBytes(const CString& strPath, const std::string& bytes);

bool FileExists(const CString& strPath);
bool IsFolder(const CString& strPath);
