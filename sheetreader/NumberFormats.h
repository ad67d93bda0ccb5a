#pragma once

#include "XmlScanner.h"

#include <string_view>
#include <vector>

// The cell formats of a workbook, as far as they decide what automation makes of a number: a plain number, or
// a date or currency.
class NumberFormats {
  public:
    NumberFormats() = default;
    explicit NumberFormats(XmlScanner styles);

    // Whether a cell of that style shows plain numbers; so do styles that there are not.
    bool IsPlain(std::size_t nStyle) const { return nStyle >= m_plain.size() || m_plain[nStyle]; }

    // The same of a format's code: not "yyyy\-mm\-dd", not "[$€-40C] 0.00", but "0.00%" and "[$-409]0.0".
    static bool IsPlainCode(std::string_view code);

  private:
    std::vector<bool> m_plain;
};
