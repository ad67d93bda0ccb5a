#pragma once

#include "XmlScanner.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct zip;
struct zip_source;

// What a part refers to: Id="rId1" Type="http://schemas.openxmlformats.org/…/worksheet" Target="sheet1.xml".
struct Relation {
    std::string id, kind;  // the last word of the type, which the strict variant of the format shares
    std::string part;      // full name; empty when it is outside of the package
};

// The parts of a workbook, by names such as "xl/workbook.xml" in any case; escaped ("a%20b.xml") they are
// found in either form. All members throw std::runtime_error when a part is missing, damaged or encrypted, or
// when what was read by then inflates past 1 GB, or past 64 MB and 250 times the size of the file.
class Package {
  public:
    // Takes over the source, also when it throws.
    explicit Package(zip_source* pSource);

    // The package has to live as long as the scanner.
    XmlScanner Open(const std::string& part);

    // In the order of the file; those of the package itself for "". None when there is no list.
    std::vector<Relation> Relations(const std::string& part);

    // The part that the first relation of this kind names; empty without one.
    static std::string FindPart(const std::vector<Relation>& relations, std::string_view kind);

  private:
    std::optional<std::uint64_t> Find(const std::string& part) const;

    std::unique_ptr<zip, void (*)(zip*)> m_pZip;
    std::uint64_t m_nMayInflate;
};
