#pragma once

#include "XmlScanner.h"

#include <string_view>
#include <vector>

// The number formats of a workbook's styles. A format shows a date, "yyyy\-mm\-dd" or "ggge", a currency of
// any country, "[$€-40C] 0.00", or a plain number, "0.00%" or "[$-409]0.0".
class NumberFormats {
  public:
    NumberFormats() = default;
    explicit NumberFormats(XmlScanner xml);

    // Whether cells of this style show plain numbers. Those of an unknown style do.
    bool IsPlain(std::size_t nStyle) const { return nStyle >= m_isPlain.size() || m_isPlain[nStyle]; }

  private:
    std::vector<bool> m_isPlain;  // by style
};
