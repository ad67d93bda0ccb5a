#pragma once

#include "XmlScanner.h"

#include <string_view>
#include <vector>

// The number formats of a workbook. They tell numbers that automation gives as plain ones from dates, such as
// "yyyy\-mm\-dd", and currencies, such as "[$€-40C] 0.00". Currencies of all countries count. "0.00%" and
// "[$-409]0.0" are plain.
class NumberFormats {
  public:
    NumberFormats() = default;
    explicit NumberFormats(XmlScanner styles);

    // Whether a cell of this style shows plain numbers. It does when there is no such style.
    bool IsPlain(std::size_t nStyle) const { return nStyle >= m_isPlain.size() || m_isPlain[nStyle]; }

  private:
    std::vector<bool> m_isPlain;  // by style
};
