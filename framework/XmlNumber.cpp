#include "XmlNumber.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

CString FromAscii(const char* pFirst, const char* pLast) {
    const auto nLength = static_cast<int>(pLast - pFirst);
    CString strText;
    std::copy(pFirst, pLast, strText.GetBuffer(nLength));
    strText.ReleaseBuffer(nLength);
    return strText;
}

// The text without leading blanks and plus sign, as far as it is ASCII.
std::string NumberCandidate(const CString& strText) {
    const wchar_t* p = strText;
    while (*p == L' ' || (*p >= L'\t' && *p <= L'\r')) ++p;
    if (*p == L'+' && p[1] != L'-') ++p;
    std::string candidate;
    for (; *p > 0 && *p < 0x80; ++p) candidate.push_back(static_cast<char>(*p));
    return candidate;
}

template <class Integer>
bool ParseIntegerAs(const CString& strText, Integer& value) {
    const std::string text = NumberCandidate(strText);
    Integer parsed = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec == std::errc::invalid_argument) return false;
    if (result.ec == std::errc::result_out_of_range)
        parsed = text[0] == '-' ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
    value = parsed;
    return true;
}

// from_chars leaves the value alone when it is out of range: infinity where the first digit that counts
// stands far before the point, zero where it stands far behind it.
double OutOfRangeValue(const std::string& text) {
    const std::size_t nExponent = std::min(text.find_first_of("eE"), text.size());
    const std::size_t nPoint = std::min(text.find('.'), nExponent);
    const std::size_t nFirst = text.find_first_of("123456789");
    std::int32_t nPower = 0;
    if (nExponent < text.size()) ParseInteger(CString(text.c_str() + nExponent + 1), nPower);
    const auto nPlace = static_cast<std::int64_t>(nPoint) - static_cast<std::int64_t>(nFirst) + nPower;
    const double magnitude = nPlace > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return text[0] == '-' ? -magnitude : magnitude;
}

// from_chars also reads words, "nan" and "inf", and then ignores the rest of "information".
bool IsWordThatIsNoNumber(const std::string& text, const char* pEnd) {
    const bool bWord = std::isalpha(static_cast<unsigned char>(text[text[0] == '-' ? 1 : 0])) != 0;
    return bWord && pEnd != text.data() + text.size();
}

template <class Number>
bool IsWholly(const CString& strText) {
    CString strTrimmed(strText);
    strTrimmed.TrimRight();
    const std::string text = NumberCandidate(strTrimmed);
    Number ignored{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), ignored);
    const bool bAscii = strTrimmed.IsEmpty() || (!text.empty() && static_cast<wchar_t>(text.back()) ==
                                                                      strTrimmed[strTrimmed.GetLength() - 1]);
    return result.ec != std::errc::invalid_argument && result.ptr == text.data() + text.size() && bAscii;
}

}  // namespace

CString FormatShortest(double value) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return FromAscii(text, result.ptr);
}

CString FormatSixDecimals(double value) {
    char text[std::numeric_limits<double>::max_exponent10 + 16];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6);
    return FromAscii(text, result.ptr);
}

CString FormatTrimmed(double value) {
    CString text = FormatSixDecimals(value);
    if (!std::isfinite(value)) return text;
    text.TrimRight(L'0');
    text.TrimRight(L'.');
    return text;
}

CString FormatInteger(std::int64_t value) {
    char text[24];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return FromAscii(text, result.ptr);
}

bool ParseInteger(const CString& strText, std::int32_t& value) {
    return ParseIntegerAs(strText, value);
}

bool ParseInteger(const CString& strText, std::int64_t& value) {
    return ParseIntegerAs(strText, value);
}

bool ParseReal(const CString& strText, double& value) {
    const std::string text = NumberCandidate(strText);
    double parsed = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec == std::errc::invalid_argument || IsWordThatIsNoNumber(text, result.ptr)) return false;
    value = result.ec == std::errc::result_out_of_range ? OutOfRangeValue({text.data(), result.ptr}) : parsed;
    return true;
}

bool IsInteger(const CString& strText) {
    return IsWholly<std::int64_t>(strText);
}

bool IsReal(const CString& strText) {
    return IsWholly<double>(strText);
}
