#pragma once

#include <map>
#include <string>

struct zip_source;

// The parts of a package, by name.
using Parts = std::map<std::string, std::string>;

// A workbook whose only sheet has these rows. Shared strings: 0 "plain", 1 a rich text "Abc d", 2 escapes, 3
// in blanks, 4 in blanks to preserve, 5 references. Styles: 0 general, 1 percent, 2 a date, 3 a format of its
// own that is neither date nor currency.
Parts MakeParts(const std::string& rows);

// A zip archive of the parts. Throws std::runtime_error.
std::string MakeZip(const Parts& parts);

// The bytes as a source. They have to live as long as the source.
zip_source* OpenBytes(const std::string& bytes);
