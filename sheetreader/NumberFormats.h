#pragma once

#include "XmlScanner.h"

#include <string_view>
#include <vector>

// The cell formats of a workbook, as far as they decide what automation makes of a number: a date by a format
// such as "yyyy\-mm\-dd", a currency by "[$€-40C] 0.00", a plain number by "0.00%" or "[$-409]0.0". A
// currency is taken for one in whatever country.
class NumberFormats {
  public:
    NumberFormats() = default;
    explicit NumberFormats(XmlScanner styles);

    // Whether a cell of that style shows plain numbers; so do styles that there are not.
    bool IsPlain(std::size_t nStyle) const { return nStyle >= m_plain.size() || m_plain[nStyle]; }

  private:
    std::vector<bool> m_plain;
};
