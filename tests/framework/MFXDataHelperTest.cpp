#include "MFXDataHelper.h"

#include <gtest/gtest.h>

TEST(MFXDataHelperTest, GivesTheLoadedDatabaseOrAnEmptyOne) {
    class Database : public IDatabaseCollector {
        bool IsAvailable() const override { return true; }
        std::vector<MfxMaterialEntry> GetProcessEntries(const CString&) const override { return {{}}; }
        CString FindMaterialGroups(const CString&) const override { return L"Steel;"; }
    } database;
    const auto expectNone = [] {
        const IDatabaseCollector* pCollector = mfx_db::MFXDataHelper::getInstance();
        ASSERT_NE(pCollector, nullptr);
        EXPECT_FALSE(pCollector->IsAvailable());
        EXPECT_TRUE(pCollector->GetProcessEntries(L"Sand Casting").empty());
        EXPECT_EQ(pCollector->FindMaterialGroups(L"Steel"), L"");
    };
    expectNone();
    mfx_db::MFXDataHelper::getInstance().SetCollector(&database);
    IDatabaseCollector* pCollector = mfx_db::MFXDataHelper::getInstance();
    EXPECT_EQ(pCollector, &database);
    mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr);
    expectNone();
}
