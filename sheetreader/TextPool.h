#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Texts of cells in UTF-8, by number. Text 0 is the empty one.
class TextPool {
  public:
    // Throws when more texts come together than a workbook should have: 32 million, or 256 MB.
    std::uint32_t Add(std::string_view text) {
        if (m_bytes.size() + text.size() > 1 << 28 || m_ends.size() > 1 << 25)
            throw std::length_error("too many texts");
        m_bytes += text;
        m_ends.push_back(static_cast<std::uint32_t>(m_bytes.size()));
        return static_cast<std::uint32_t>(m_ends.size() - 1);
    }
    std::string_view operator[](std::uint32_t nText) const {
        const std::uint32_t nStart = nText ? m_ends[nText - 1] : 0;
        return {m_bytes.data() + nStart, m_ends[nText] - nStart};
    }
    std::size_t size() const { return m_ends.size(); }

  private:
    std::string m_bytes;
    std::vector<std::uint32_t> m_ends{0};
};
