#include "MFXDataHelper.h"

#include <gmock/gmock.h>

TEST(MFXDataHelperTest, GivesTheLoadedDatabaseOrAnEmptyOne) {
    IDatabaseCollector* const pNone = mfx_db::MFXDataHelper::getInstance();
    EXPECT_FALSE(pNone->IsAvailable());
    EXPECT_TRUE(pNone->GetProcessEntries(L"Sand Casting").empty() &&
                pNone->FindMaterialGroups(L"Steel").IsEmpty());

    class : public IDatabaseCollector {
        bool IsAvailable() const override { return true; }
        std::vector<MfxMaterialEntry> GetProcessEntries(const CString&) const override { return {{}}; }
        CString FindMaterialGroups(const CString&) const override { return L"Steel;"; }
    } database;
    mfx_db::MFXDataHelper::getInstance().SetCollector(&database);
    EXPECT_EQ(static_cast<IDatabaseCollector*>(mfx_db::MFXDataHelper::getInstance()), &database);
    mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr);
    EXPECT_EQ(static_cast<IDatabaseCollector*>(mfx_db::MFXDataHelper::getInstance()), pNone);
}
