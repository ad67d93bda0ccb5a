#pragma once

#include <map>
#include <string>

struct zip_source;

// The parts of a package, by name.
using Parts = std::map<std::string, std::string>;

// A workbook whose only sheet has these rows. Shared texts: "plain", a rich one "Abc d", one with escapes,
// one in blanks, the same with them preserved, one with entities. Styles: general, percent, date (built in
// and its own), currency (built in and its own), a text and a number, elapsed time.
Parts MakeParts(const std::string& rows);

// An archive of the parts. Throws std::runtime_error.
std::string MakeZip(const Parts& parts);

// The bytes, which have to live as long, as a source.
zip_source* OpenBytes(const std::string& bytes);
