#include "XmlBuffer.h"

#include "Limits.h"
#include "Unicode.h"

#include <algorithm>
#include <stdexcept>

bool XmlBuffer::StartsWith(std::string_view mark) {
    while (static_cast<std::size_t>(End() - Begin()) < mark.size() && Refill()) {
    }
    return std::string_view(Begin(), End()).starts_with(mark);
}

char* XmlBuffer::Find(std::string_view mark, std::size_t nFrom) {
    for (;;) {
        const std::string_view text(Begin(), End());
        const std::size_t nAt = text.find(mark, nFrom);
        if (nAt != text.npos) return Begin() + nAt;
        const std::size_t nHalfMark = std::min(text.size(), mark.size() - 1);
        nFrom = std::max(nFrom, text.size() - nHalfMark);
        if (!Refill()) throw std::runtime_error("the end of a part is missing");
    }
}

bool XmlBuffer::Refill() {
    m_text.erase(0, m_nBegin);
    m_nBegin = 0;
    const std::size_t nOld = m_text.size();
    if (nOld > kMaxTokenBytes) throw std::runtime_error("a tag or text too long");
    // A tag is parsed from its start each time. Twice the text each time keeps that linear.
    while (ReadPiece() && m_text.size() < 2 * nOld) {
    }
    return m_text.size() > nOld;
}

// False at the part's end.
bool XmlBuffer::ReadPiece() {
    std::string_view bytes = m_source();
    if (bytes.empty() && !m_utf16.empty()) throw std::runtime_error("half a character at the end");
    if (bytes.empty()) return false;
    if (m_encoding == Encoding::Unknown) bytes.remove_prefix(DetectEncoding(bytes));
    if (m_encoding == Encoding::Utf8) {
        m_text += bytes;
    } else {
        m_utf16 += bytes;
        m_utf16.erase(0, AppendUtf16(m_text, m_utf16, m_encoding == Encoding::Utf16Big));
    }
    return true;
}

// By the byte order mark, or by how "<" is written. Returns the length of the mark.
std::size_t XmlBuffer::DetectEncoding(std::string_view start) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view start;
        Encoding encoding;
        std::size_t nMark;
    } kStarts[] = {
        {"\xFF\xFE"sv, Encoding::Utf16Little, 2}, {"<\0"sv, Encoding::Utf16Little, 0},
        {"\xFE\xFF"sv, Encoding::Utf16Big, 2},    {"\0<"sv, Encoding::Utf16Big, 0},
        {"\xEF\xBB\xBF"sv, Encoding::Utf8, 3},    {""sv, Encoding::Utf8, 0},
    };
    const auto& found = *std::find_if(std::begin(kStarts), std::end(kStarts),
                                      [&](const auto& known) { return start.starts_with(known.start); });
    m_encoding = found.encoding;
    return found.nMark;
}
