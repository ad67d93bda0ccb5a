#include "MaterialLimitsCheck.h"

#include <gtest/gtest.h>

// What is wrong with rows, and where, is seen in the dialog of the uniform thickness.
TEST(MaterialLimitsCheckTest, TellsLimitsFromOtherTexts) {
    const MaterialLimitTexts good{L"Steel", L"5", L"6.5"}, equal{L"Iron", L"5.0000005", L"5"}, empty{};
    for (const CString strNoLimit : {L"0.0", L"1.2.3", L"6 mm", L"."}) {
        const auto result = CheckMaterialLimits(std::vector{empty, {L"Iron", L"1", strNoLimit}});
        EXPECT_EQ(result.flaw, MaterialLimitsFlaw::NoPositiveNumber) << strNoLimit.GetString();
        EXPECT_EQ(result.nRow, 2);
        EXPECT_EQ(result.column, MaterialColumn::Maximum);
    }
    EXPECT_EQ(CheckMaterialLimits(std::vector{empty, good, equal, empty}).limits,
              (std::vector<MaterialLimits>{{L"Steel", 5, 6.5}, {L"Iron", 5.0000005, 5}}));
}
