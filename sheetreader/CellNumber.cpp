#include "CellNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

template <class Number>
Number Parse(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t nFirst = text.find_first_not_of(kBlanks);
    text = nFirst == text.npos ? "" : text.substr(nFirst, text.find_last_not_of(kBlanks) + 1 - nFirst);
    if (text.starts_with('+')) text.remove_prefix(1);
    Number number{};
    const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || pEnd != text.data() + text.size()) throw std::runtime_error("no number");
    return number;
}

}  // namespace

std::uint32_t ParseIndex(std::string_view text) {
    return Parse<std::uint32_t>(text);
}

void FormatCellNumber(std::string_view number, std::string& text) {
    const double value = Parse<double>(number);
    if (!std::isfinite(value)) throw std::runtime_error("no number");
    char digits[std::numeric_limits<double>::max_exponent10 + 16];
    char* const pEnd = std::to_chars(digits, std::end(digits), value, std::chars_format::fixed, 6).ptr;
    text.assign(digits + 0, pEnd);
    text.resize(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
}
