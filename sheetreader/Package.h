#pragma once

#include "XmlScanner.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct zip;
struct zip_source;

// A reference of a part to another one:
//     <Relationship Id="rId1" Type="http://schemas.openxmlformats.org/…/worksheet" Target="sheet1.xml"/>
struct Relationship {
    std::string id;
    std::string type;  // its last word, "worksheet": the rest differs between variants of the format
    std::string part;  // full name of the target; empty when that is outside of the package
};

// The zip archive of a workbook and its parts. Names are such as "xl/workbook.xml", in any case. The
// archive's own may be escaped ("a%20b.xml") and have backslashes. All members throw std::runtime_error when
// a part is missing, damaged or encrypted, or when the parts inflate too far (kMaxInflation).
class Package {
  public:
    // Takes over the source, also when it throws.
    explicit Package(zip_source* pSource);

    // The package has to live as long as the scanner.
    XmlScanner OpenPart(const std::string& part);

    // Those of a part, or of the package itself for "", in the order of the file; none when there is no list.
    std::vector<Relationship> ReadRelationships(const std::string& part);

  private:
    std::optional<std::uint64_t> FindEntry(const std::string& part) const;

    std::unique_ptr<zip, void (*)(zip*)> m_pZip;
    std::uint64_t m_nBytesLeft;  // that the parts may still inflate to
};

// The target of the first relationship of this type; empty when there is none.
std::string FindTarget(const std::vector<Relationship>& relationships, std::string_view type);
