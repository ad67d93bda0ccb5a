#include "CentralDirectory.h"

#include <zip.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

namespace {

// End record: signature at 0, bytes of the directory at 12, at most 65,535 bytes of comment behind its 22.
constexpr std::string_view kEnd("PK\5\6", 4);
constexpr std::size_t kEndBytes = 22, kEndDirectoryBytes = 12, kMaxCommentBytes = 0xFFFF;

// Locator of a zip64 end record, right before the end record: signature at 0, the record's offset at 8.
constexpr std::string_view kLocator("PK\6\7", 4);
constexpr std::size_t kLocatorBytes = 20, kLocatorOffset = 8;

// Zip64 end record: bytes of the directory at 40.
constexpr std::size_t kEnd64Bytes = 56, kEnd64DirectoryBytes = 40;

std::uint64_t LittleEndian(std::string_view bytes) {
    std::uint64_t nValue = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
        nValue = nValue << 8 | static_cast<unsigned char>(*byte);
    return nValue;
}

std::string ReadAt(zip_source* pSource, std::uint64_t nOffset, std::size_t nBytes) {
    std::string bytes(nBytes, '\0');
    if (zip_source_seek(pSource, static_cast<zip_int64_t>(nOffset), SEEK_SET) != 0) return {};
    const zip_int64_t nRead = zip_source_read(pSource, bytes.data(), nBytes);
    bytes.resize(nRead < 0 ? 0 : static_cast<std::size_t>(nRead));
    return bytes;
}

std::uint64_t DirectoryBytesOfZip64(zip_source* pSource, std::string_view beforeEnd) {
    if (beforeEnd.size() < kLocatorBytes) return 0;
    const std::string_view locator = beforeEnd.substr(beforeEnd.size() - kLocatorBytes);
    if (!locator.starts_with(kLocator)) return 0;
    const std::uint64_t nOffset = LittleEndian(locator.substr(kLocatorOffset, 8));
    const std::string record = ReadAt(pSource, nOffset, kEnd64Bytes);
    return record.size() < kEnd64Bytes
               ? 0
               : LittleEndian(std::string_view(record).substr(kEnd64DirectoryBytes, 8));
}

}  // namespace

std::uint64_t GetCentralDirectoryBytes(zip_source* pSource) {
    zip_stat_t stat;
    if (zip_source_stat(pSource, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE)) return 0;
    if (stat.size < kEndBytes) return 0;  // libzip fails when it reads from an empty source
    if (zip_source_open(pSource) != 0) return 0;
    const std::unique_ptr<zip_source, int (*)(zip_source*)> pClosed(pSource, zip_source_close);
    const std::size_t nTail =
        std::min<std::uint64_t>(stat.size, kLocatorBytes + kEndBytes + kMaxCommentBytes);
    const std::string tail = ReadAt(pSource, stat.size - nTail, nTail);
    std::uint64_t nLargest = 0;
    for (std::size_t nEnd = tail.find(kEnd); nEnd != tail.npos; nEnd = tail.find(kEnd, nEnd + 1)) {
        if (tail.size() - nEnd < kEndBytes) break;
        const std::string_view bytes = std::string_view(tail).substr(nEnd + kEndDirectoryBytes, 4);
        const std::uint64_t nZip64 = DirectoryBytesOfZip64(pSource, std::string_view(tail).substr(0, nEnd));
        nLargest = std::max(nLargest, nZip64 ? nZip64 : LittleEndian(bytes));
    }
    return nLargest;
}
