// What a workbook may hold. One that holds more is damaged or hostile, and is refused. Within these
// limits reading takes at most 500 MB and five seconds of processor time.
#pragma once

#include <cstddef>
#include <cstdint>

// A sheet, as in Excel.
inline constexpr std::uint32_t kMaxRow = 1 << 20, kMaxColumn = 1 << 14;

// Cells of the table that is read.
inline constexpr std::size_t kMaxTableCells = 1 << 23;

// Memory for the table and the strings it is made from. A shared string counts for each of its cells. A
// program in Wine takes 135 MB before it reads anything.
inline constexpr std::size_t kMaxReadBytes = 350'000'000;

// Strings and their bytes in a workbook, each shared string once.
inline constexpr std::size_t kMaxStrings = 1 << 24, kMaxStringBytes = 1 << 27;

// Entries in a list of sheets, relationships or formats, and bytes of their texts.
inline constexpr std::size_t kMaxListEntries = 1 << 16, kMaxListBytes = 1 << 24;

// A number format's code, as in Excel.
inline constexpr std::size_t kMaxFormatCharacters = 255;

// A relationship's target, id or type.
inline constexpr std::size_t kMaxTargetBytes = 1 << 12;

// All parts together, uncompressed. 64 MB are always allowed, and 512 MB are never exceeded. In between, the
// size of the file decides: 250 bytes for each of its bytes.
inline constexpr std::uint64_t kAlwaysInflatedBytes = 1 << 26, kMaxInflatedBytes = 1 << 29,
                               kMaxInflation = 250;

// The archive's list of entries. An entry takes at least 46 bytes here, and 300 in memory.
inline constexpr std::uint64_t kMaxCentralDirectoryBytes = 1 << 23;

// Elements inside one another.
inline constexpr std::size_t kMaxElementDepth = 256;

// An element's name, and its attributes.
inline constexpr std::size_t kMaxNameBytes = 1 << 12, kMaxAttributes = 256;

// A tag or a text. The limit is tested before each read, so a token may grow to twice the size.
inline constexpr std::size_t kMaxTokenBytes = 1 << 22;
