// Values of all eight parameter types that are hard to keep, for tests of their text and record forms.
#pragma once

#include "MfxTypes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <deque>
#include <limits>

using ValueTypes = ::testing::Types<bool, std::int32_t, std::int64_t, double, CString, MfxDoublePair,
                                    MfxTextList, MfxTableRow>;

// Texts that could be taken for separators, markup or layout.
inline std::vector<CString> SampleTexts() {
    return {L"",         L" \t ",     L"a;b\\;",      L"\\",         L";",   L"first\r\nsecond\rthird\n",
            L"<&>\"']]>", L"\u9435 \u00e4", L" blanks ", L"\U0001F600", L"1.50"};
}

inline std::deque<double> SampleDoubles() {
    using Limits = std::numeric_limits<double>;
    return {0.1, 1.0 / 3, 1e-300, 1e300, -0.0, 0.0, Limits::denorm_min(), -2.2e-310, Limits::max(), 25.4};
}

// Every type's samples; the first one is not the type's empty value.
template <class T>
std::deque<T> SampleValues() {
    if constexpr (std::is_same_v<T, bool>) {
        return {true, false};
    } else if constexpr (std::is_integral_v<T>) {
        return {-7, 0, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
    } else if constexpr (std::is_same_v<T, double>) {
        return SampleDoubles();
    } else if constexpr (std::is_same_v<T, CString>) {
        const std::vector<CString> texts = SampleTexts();
        return {texts.rbegin(), texts.rend()};
    } else if constexpr (std::is_same_v<T, MfxDoublePair>) {
        std::deque<T> pairs;
        for (const double value : SampleDoubles()) pairs.push_back({value, -value});
        return pairs;
    } else {
        return {T{SampleTexts()}, T{}, T{{L""}}, T{{L"a", L""}}, T{{L"", L"\\;"}}};
    }
}

// Equality to the last bit: a zero's sign counts.
template <class T>
bool IsSame(const T& left, const T& right) {
    return left == right;
}
inline bool IsSame(double left, double right) {
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}
inline bool IsSame(const MfxDoublePair& left, const MfxDoublePair& right) {
    return IsSame(left.first, right.first) && IsSame(left.second, right.second);
}
