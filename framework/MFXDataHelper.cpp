#include "MFXDataHelper.h"

namespace {

class NoDatabase : public IDatabaseCollector {
  public:
    bool IsAvailable() const override { return false; }
    MfxDatabaseResult GetWriteProblem() const override { return NotLoaded(); }
    std::vector<MfxMaterialEntry> GetProcessEntries(const CString&) const override { return {}; }
    CString FindMaterialGroups(const CString&) const override { return CString(); }
    MfxDatabaseResult GetGroups(std::vector<MfxMaterialGroup>&) const override { return NotLoaded(); }
    MfxDatabaseResult GetMaterials(const MfxGroupKey&, std::vector<MfxMaterial>&) const override {
        return NotLoaded();
    }
    MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>&) override { return NotLoaded(); }

  private:
    static MfxDatabaseResult NotLoaded() { return {DatabaseNotLoaded, L"no material database is loaded"}; }
};

}  // namespace

namespace mfx_db {

MFXDataHelper& MFXDataHelper::getInstance() {
    static MFXDataHelper instance;
    return instance;
}

MFXDataHelper::operator IDatabaseCollector*() const {
    static NoDatabase noDatabase;
    return m_pCollector ? m_pCollector : &noDatabase;
}

void MFXDataHelper::SetCollector(IDatabaseCollector* pCollector) {
    m_pCollector = pCollector;
}

}  // namespace mfx_db
