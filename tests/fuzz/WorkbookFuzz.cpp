// For libFuzzer: the first byte of an input says what the others are, an archive or one of a good workbook's
// parts.

#include "sheetreader/CheckedRead.h"

#include <cstdint>
#include <iterator>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    static const Parts kParts = MakeParts(kManyCells);
    if (nSize == 0) return 0;
    const std::string bytes(reinterpret_cast<const char*>(pData) + 1, nSize - 1);
    const std::size_t nPart = *pData % (kParts.size() + 1);
    if (nPart == kParts.size()) {
        CheckedRead(bytes);
        return 0;
    }
    Parts parts = kParts;
    std::next(parts.begin(), static_cast<std::ptrdiff_t>(nPart))->second = bytes;
    CheckedRead(MakeZip(parts));
    return 0;
}
