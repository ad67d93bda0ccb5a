#include "MaterialTables.h"

#include "NumberText.h"

#include <gtest/gtest.h>

TEST(MaterialTablesTest, LimitsMakeSense) {
    for (const int nCategory : {9, 19}) {
        EXPECT_FALSE(GetDefaultMaterials(nCategory).empty()) << nCategory;
        for (const auto& material : GetDefaultMaterials(nCategory))
            EXPECT_GT(ParseDouble(material.pszMaximumInch), ParseDouble(material.pszMinimumInch))
                << material.pszMaterial;
    }
    EXPECT_TRUE(GetDefaultMaterials(1).empty());
    EXPECT_TRUE(GetMaterialGroups(9).empty());
    EXPECT_FALSE(GetMaterialGroups(19).empty());
}
