#pragma once

#include <functional>
#include <string>
#include <string_view>

// The XML of a part as UTF-8, read piece by piece from UTF-8 or UTF-16. Consumed text is dropped. Members
// throw std::runtime_error when the bytes are no UTF-16, or when a tag or text is too long (kMaxTokenBytes).
class XmlBuffer {
  public:
    // Returns the next bytes, which are valid until the next call: some thousands, fewer only at the end.
    using Source = std::function<std::string_view()>;

    explicit XmlBuffer(Source source) : m_source(std::move(source)) {}

    // The text that is read and not consumed. There is a zero at its end. Refill moves the text.
    char* Begin() { return m_text.data() + m_nBegin; }
    char* End() { return m_text.data() + m_text.size(); }

    void ConsumeTo(const char* p) { m_nBegin = static_cast<std::size_t>(p - m_text.data()); }

    // Reads more text. False at the part's end.
    bool Refill();

    // The next two read more text where they need it.
    bool StartsWith(std::string_view mark);

    // The first mark from that many bytes behind Begin. Throws std::runtime_error when there is none.
    char* Find(std::string_view mark, std::size_t nFrom);

  private:
    enum class Encoding { Unknown, Utf8, Utf16Little, Utf16Big };

    bool ReadPiece();
    std::size_t DetectEncoding(std::string_view start);

    Source m_source;
    std::string m_text;
    std::size_t m_nBegin = 0;
    Encoding m_encoding = Encoding::Unknown;
    std::string m_utf16;  // bytes that are not converted yet: at most half a character between two reads
};
