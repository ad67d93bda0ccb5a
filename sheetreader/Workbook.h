#pragma once

#include "NumberFormats.h"
#include "Package.h"
#include "StringPool.h"

#include <optional>

// An .xlsx workbook, also of the strict variant of the format: a package with a part for the workbook, one
// for each sheet, and those that sheets refer to. All members throw std::runtime_error when it is damaged.
class Workbook {
  public:
    // Takes over the source, also when it throws.
    explicit Workbook(zip_source* pSource);

    // Name of the part of the sheet that Excel shows on opening. None when that is a chart or a dialog, which
    // have no cells.
    std::optional<std::string> FindActiveSheet();

    // Once it was looked for.
    const std::string& GetActiveSheetName() const { return m_activeSheetName; }

    XmlScanner OpenPart(const std::string& part) { return m_package.OpenPart(part); }
    NumberFormats ReadNumberFormats();

    // The first shared string is string 1 of the pool.
    StringPool ReadSharedStrings();

  private:
    Package m_package;
    std::string m_part;
    std::string m_activeSheetName;
    std::vector<Relationship> m_relationships;
};
