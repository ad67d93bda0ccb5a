#include "MaterialChoices.h"

#include "MFXUnitConvertor.h"

#include <gtest/gtest.h>

TEST(MaterialChoicesTest, HaveTheUsualLimitsInTheRulesUnit) {
    const struct {
        int nLengthUnit;
        LPCWSTR pszMaximum;  // of steel, 0.25 inches
    } kCases[] = {{LengthMillimetre, L"6.35"},
                  {LengthCentimetre, L"0.635"},
                  {LengthInch, L"0.25"},
                  {LengthMetre, L"0.00635"},
                  {LengthFoot, L"0.020833"}};
    for (const auto& [nLengthUnit, pszMaximum] : kCases) {
        const auto choices = ListMaterialChoices(19, L"Steel", nLengthUnit);
        ASSERT_EQ(choices.size(), 5u);
        EXPECT_STREQ(choices[1].strMaterial, L"Steel");
        EXPECT_STREQ(choices[1].strMaximum, pszMaximum);
    }
    EXPECT_EQ(ListMaterialChoices(9, L"", LengthInch).size(), 38u) << "plastics";
    EXPECT_TRUE(ListMaterialChoices(7, L"", LengthInch).empty());
}
