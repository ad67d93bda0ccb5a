#include "ValueContent.h"

#include "CastSizeAndWeightBand.h"
#include "DraftTableCheck.h"
#include "NumberText.h"
#include "Text.h"
#include "XmlNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>

ValueContent ContentOfNumber(double number, bool isOfBand) {
    if (!std::isfinite(number)) return FormatNumber(number);
    if (isOfBand && number < -kTolerance) return std::monostate();
    if (isOfBand && IsNoUpperLimit(number)) return "no limit";
    return number;
}

ValueContent ContentOfCell(const MfxTableRow& row, std::size_t cell) {
    if (cell >= row.cells.size() || row.cells[cell].IsEmpty()) return std::monostate();
    const CString& text = row.cells[cell];
    if (!IsNumericText(text) || !IsReal(text)) return ToUtf8(text);
    return ContentOfNumber(ParseDouble(text), QuantityOfDraftCell(cell) == Quantity::Length);
}

double StoredNumber(const ValueContent& content) {
    if (const double* number = std::get_if<double>(&content)) return *number;
    return std::holds_alternative<std::string>(content) ? NoUpperLimitValue : kValueNotGiven;
}

std::string FormatNumber(double number, int digits) {
    const double magnitude = std::fabs(number);
    const bool isFixed = magnitude >= 1e-9 && magnitude < 1e15;
    char buffer[48];
    if (!isFixed) {
        const auto end =
            std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::general, digits);
        return std::string(buffer, end.ptr);
    }
    const int decimals = std::max(digits - 1 - static_cast<int>(std::floor(std::log10(magnitude))), 0);
    const auto end =
        std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::fixed, decimals);
    std::string text(buffer, end.ptr);
    if (decimals > 0) text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string FormatExact(double number) {
    const double magnitude = std::fabs(number);
    const bool isFixed = magnitude == 0.0 || (magnitude >= 1e-9 && magnitude < 1e15);
    char buffer[48];
    const auto format = isFixed ? std::chars_format::fixed : std::chars_format::general;
    return {buffer, std::to_chars(buffer, std::end(buffer), number, format).ptr};
}

std::string FormatContent(const ValueContent& content, int digits) {
    if (const double* number = std::get_if<double>(&content)) return FormatNumber(*number, digits);
    const std::string* word = std::get_if<std::string>(&content);
    return word ? *word : "-";
}
