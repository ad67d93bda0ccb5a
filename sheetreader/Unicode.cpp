#include "Unicode.h"

#include <algorithm>
#include <stdexcept>

std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char ch) { return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n'; };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

void AppendUtf8(std::string& utf8, char32_t ch) {
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    const int nFollowing = ch < 0x80 ? 0 : ch < 0x800 ? 1 : ch < 0x10000 ? 2 : 3;
    utf8 += static_cast<char>(kLead[nFollowing] | ch >> 6 * nFollowing);
    for (int i = nFollowing - 1; i >= 0; --i) utf8 += static_cast<char>(0x80 | (ch >> 6 * i & 0x3F));
}

namespace {

bool IsSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

char32_t JoinSurrogates(char32_t high, char32_t low) {
    if (high > 0xDBFF || low < 0xDC00 || low > 0xDFFF) throw std::runtime_error("no UTF-16");
    return 0x10000 + ((high & 0x3FF) << 10 | (low & 0x3FF));
}

}  // namespace

char32_t DecodeUtf8(std::string_view utf8, std::size_t& nAt) {
    constexpr char32_t kLeast[] = {0x80, 0x800, 0x10000};  // of each length; less is an overlong form
    const unsigned nLead = static_cast<unsigned char>(utf8[nAt++]);
    if (nLead < 0x80) return nLead;
    const std::size_t nFollowing = nLead < 0xE0 ? 1 : nLead < 0xF0 ? 2 : 3;
    if (nLead < 0xC0 || nLead > 0xF4 || utf8.size() - nAt < nFollowing) throw std::runtime_error("no UTF-8");
    char32_t ch = nLead & (0x3F >> nFollowing);
    for (std::size_t i = 0; i < nFollowing; ++i) {
        const unsigned nByte = static_cast<unsigned char>(utf8[nAt++]);
        if ((nByte & 0xC0) != 0x80) throw std::runtime_error("no UTF-8");
        ch = ch << 6 | (nByte & 0x3F);
    }
    if (ch < kLeast[nFollowing - 1] || ch > 0x10FFFF) throw std::runtime_error("no UTF-8");
    return ch;
}

std::size_t AppendUtf16(std::string& utf8, std::string_view utf16, bool bBigEndian) {
    const auto byte = [&](std::size_t nAt) { return static_cast<unsigned char>(utf16[nAt]); };
    const auto unit = [&](std::size_t nAt) -> char32_t {
        const unsigned nFirst = byte(nAt), nSecond = byte(nAt + 1);
        return bBigEndian ? nFirst << 8 | nSecond : nSecond << 8 | nFirst;
    };
    for (std::size_t nAt = 0;;) {
        const std::size_t nLeft = utf16.size() - nAt;
        const bool bPair = nLeft >= 2 && IsSurrogate(unit(nAt));
        if (nLeft < (bPair ? 4 : 2)) return nAt;
        AppendUtf8(utf8, bPair ? JoinSurrogates(unit(nAt), unit(nAt + 2)) : unit(nAt));
        nAt += bPair ? 4 : 2;
    }
}

void ToWide(std::string_view utf8, std::wstring& wide) {
    // Most texts are ASCII, whose characters need not be told apart.
    const auto end =
        std::find_if(utf8.begin(), utf8.end(), [](char ch) { return static_cast<signed char>(ch) < 0; });
    wide.assign(utf8.begin(), end);
    for (auto nAt = static_cast<std::size_t>(end - utf8.begin()); nAt < utf8.size();) {
        const char32_t ch = DecodeUtf8(utf8, nAt);
        if (sizeof(wchar_t) == 4 || ch < 0x10000) {
            wide += static_cast<wchar_t>(ch);
        } else {
            wide += static_cast<wchar_t>(0xD7C0 + (ch >> 10));
            wide += static_cast<wchar_t>(0xDC00 | (ch & 0x3FF));
        }
    }
}
