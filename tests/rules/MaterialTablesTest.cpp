#include "MaterialTables.h"

#include "NumberText.h"

#include <gtest/gtest.h>

TEST(MaterialTablesTest, TablesByCategory) {
    for (int nCategory = -1; nCategory < 30; ++nCategory) {
        EXPECT_EQ(GetDefaultMaterials(nCategory).size(), nCategory == 9 ? 38u : nCategory == 19 ? 5u : 0u);
        EXPECT_EQ(GetMaterialGroups(nCategory).size(), nCategory == 19 ? 7u : 0u);
    }
    const auto plastics = GetDefaultMaterials(9), metals = GetDefaultMaterials(19);
    EXPECT_STREQ(plastics[7].pszMaterial, L"Ethylene Vinyl Acetate");
    EXPECT_STREQ(plastics[8].pszMaterial, L"Epoxy/glass");
    EXPECT_EQ(ParseDouble(plastics[37].pszMinimumInch) + ParseDouble(plastics[37].pszMaximumInch),
              0.035 + 0.187);
    EXPECT_STREQ(metals[0].pszMaterial, L"Aluminium");
    EXPECT_NEAR(ParseDouble(metals[0].pszMinimumInch), 3.18 / 25.4, 1e-15);
    EXPECT_NEAR(ParseDouble(metals[0].pszMaximumInch), 4.76 / 25.4, 1e-15);
    EXPECT_STREQ(metals[4].pszMaterial, L"Malleable Cast Iron");
    EXPECT_STREQ(GetMaterialGroups(19)[3], L"Other Metals");
}
