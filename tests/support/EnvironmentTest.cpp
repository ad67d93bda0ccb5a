#include <windows.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

// A run at another resolution, or with a decimal comma, proves nothing unless it has it.
TEST(EnvironmentTest, IsAsPromised) {
    if (const char* const dpi = std::getenv("MFX_TEST_DPI")) {
        EXPECT_EQ(GetDpiForSystem(), static_cast<UINT>(std::atoi(dpi)));
    }
    if (const char* const mark = std::getenv("MFX_TEST_DECIMAL_MARK")) {
        EXPECT_STREQ(std::localeconv()->decimal_point, mark);
    }
}
