#pragma once

#include "Limits.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Strings in UTF-8, by number. String 0 is empty.
class StringPool {
  public:
    // Returns the string's number. Throws std::length_error at kMaxStrings or kMaxStringBytes.
    std::uint32_t Add(std::string_view text) {
        if (m_bytes.size() + text.size() > kMaxStringBytes || m_ends.size() > kMaxStrings)
            throw std::length_error("too many strings");
        m_bytes += text;
        m_ends.push_back(static_cast<std::uint32_t>(m_bytes.size()));
        return static_cast<std::uint32_t>(m_ends.size() - 1);
    }
    std::string_view operator[](std::uint32_t nString) const {
        const std::uint32_t nStart = nString ? m_ends[nString - 1] : 0;
        return {m_bytes.data() + nStart, m_ends[nString] - nStart};
    }
    std::size_t size() const { return m_ends.size(); }
    std::size_t CountBytes() const { return m_bytes.size() + m_ends.size() * sizeof(m_ends[0]); }

  private:
    std::string m_bytes;  // all strings, one behind the other
    std::vector<std::uint32_t> m_ends{0};
};
