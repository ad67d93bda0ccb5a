#include "MFXDataHelper.h"

namespace {

class NoDatabase : public IDatabaseCollector {
  public:
    bool IsAvailable() const override { return false; }
    std::vector<MfxMaterialEntry> GetProcessEntries(const CString&) const override { return {}; }
    CString FindMaterialGroups(const CString&) const override { return CString(); }
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
