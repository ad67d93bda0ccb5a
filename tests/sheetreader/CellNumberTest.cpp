#include "CellNumber.h"
#include "ExcelSheet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

TEST(CellNumberTest, RoundsAsAutomationDoes) {
    std::vector<double> numbers{0,   0.5e-6, 1.5e-6,     2.5e-6,         -4e-7,      0.9999995, 1 / 3.0,
                                1e6, 1e12,   1e12 + 0.5, 123456.1234565, 1e15 + 0.3, -1e300,    5e-324};
    std::mt19937_64 random(1);
    for (int i = 0; i < 2000; ++i) numbers.push_back(static_cast<double>(random() % 4'000'000'000) / 2e6);
    for (int i = 0; i < 2000; ++i) numbers.push_back(std::ldexp(static_cast<double>(random()), -i % 90));
    for (const double number : numbers) {
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", number);
        Digits digits;
        const std::string_view formatted = FormatCellNumber(text, digits);
        VARIANT value{};
        value.vt = VT_R8;
        value.dblVal = number;
        EXPECT_STREQ(std::wstring(formatted.begin(), formatted.end()).c_str(), CellText(value)) << text;
    }
}
