#pragma once

#include <cstdint>

struct zip_source;

// Bytes of an archive's list of entries, as the records at its end say; 0 when there is none. A file may hold
// several such records: the largest counts. Reads only the file's end.
std::uint64_t GetCentralDirectoryBytes(zip_source* pSource);
