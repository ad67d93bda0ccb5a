#include "CellNumber.h"

#include "Unicode.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <type_traits>

namespace {

// Tells a number out of range that is too small, "1E-400", from one that is too large.
bool IsTiny(std::string_view number) {
    const std::size_t nExponent = number.find_first_of("eE");
    return nExponent != number.npos && number.substr(nExponent + 1).starts_with('-');
}

template <class Number>
Number Parse(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    Number number{};
    const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || pEnd != text.data() + text.size()) throw std::runtime_error("no number");
    if (error == std::errc()) return number;
    if (!std::is_floating_point_v<Number> || !IsTiny(text)) throw std::runtime_error("no number");
    return 0;
}

// Six decimals, several times as fast as the exact conversion. Empty where the fast way could round wrongly.
std::string_view WriteMillionths(double value, Digits& digits) {
    const double millionths = std::abs(value) * 1e6, whole = std::floor(millionths),
                 rest = millionths - whole;
    if (millionths > 1e12 || std::abs(rest - 0.5) < 0.001)
        return {};  // less than the product's error is safe
    auto nLeft = static_cast<std::uint64_t>(whole) + (rest > 0.5);
    char* p = std::end(digits);
    const auto write = [&] { *--p = static_cast<char>('0' + nLeft % 10), nLeft /= 10; };
    for (int i = 0; i < 6; ++i) write();
    *--p = '.';
    do write();
    while (nLeft > 0);
    if (std::signbit(value)) *--p = '-';
    return {p, std::end(digits)};
}

std::string_view WriteExactly(double value, Digits& digits) {
    return {digits, std::to_chars(digits, std::end(digits), value, std::chars_format::fixed, 6).ptr};
}

}  // namespace

std::uint32_t ParseIndex(std::string_view text) {
    return Parse<std::uint32_t>(text);
}

std::string_view FormatCellNumber(std::string_view number, Digits& digits) {
    const auto value = Parse<double>(number);
    if (!std::isfinite(value)) throw std::runtime_error("no number");
    std::string_view text = WriteMillionths(value, digits);
    if (text.empty()) text = WriteExactly(value, digits);
    while (text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    return text;
}
