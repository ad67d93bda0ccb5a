#include "MFXDataHelper.h"

namespace {

class NoDatabase : public IDatabaseCollector {
  public:
    bool IsAvailable() const override { return false; }
    MfxDatabaseResult GetProblem() const override {
        return {DatabaseNotLoaded, L"no material database is loaded"};
    }
    MfxDatabaseResult GetWriteProblem() const override { return GetProblem(); }
    std::vector<MfxMaterialEntry> GetProcessEntries(const CString&) const override { return {}; }
    CString FindMaterialGroups(const CString&) const override { return CString(); }
    std::vector<MfxMaterialGroup> GetGroups() const override { return {}; }
    std::vector<MfxMaterial> GetMaterials(const MfxGroupKey&) const override { return {}; }
    MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>&) override { return GetProblem(); }
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
