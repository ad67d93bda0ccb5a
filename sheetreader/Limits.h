// What a workbook may hold. One that holds more is damaged or hostile, and is refused.
#pragma once

#include <cstddef>
#include <cstdint>

// A sheet, as in Excel.
inline constexpr std::uint32_t kMaxRow = 1 << 20, kMaxColumn = 1 << 14;

// Cells and bytes of text in the table that is read. A shared string counts for each of its cells.
inline constexpr std::size_t kMaxTableCells = 1 << 24, kMaxTableBytes = 1 << 28;

// Strings and their bytes in a workbook, each shared string once.
inline constexpr std::size_t kMaxStrings = 1 << 25, kMaxStringBytes = 1 << 28;

// Entries in a list of sheets, relationships or formats.
inline constexpr std::size_t kMaxListEntries = 1 << 16;

// All parts together, uncompressed. 64 MB are always allowed, and 1 GB is never exceeded. In between, the
// size of the file decides: 250 bytes for each of its bytes.
inline constexpr std::uint64_t kAlwaysInflatedBytes = 1 << 26, kMaxInflatedBytes = 1 << 30,
                               kMaxInflation = 250;

// Elements inside one another.
inline constexpr std::size_t kMaxElementDepth = 256;

// A tag or a text. The limit is tested before each read, so a token may grow to twice the size.
inline constexpr std::size_t kMaxTokenBytes = 1 << 24;
