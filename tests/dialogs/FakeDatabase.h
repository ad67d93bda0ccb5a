#pragma once

#include "LibraryPtr.h"
#include "MFXDataHelper.h"

// The database that dialogs find while it lives; its library is loaded, too.
class FakeDatabase : public IDatabaseCollector {
  public:
    FakeDatabase() { mfx_db::MFXDataHelper::getInstance().SetCollector(this); }
    ~FakeDatabase() override { mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr); }

    bool IsAvailable() const override { return m_bAvailable; }
    std::vector<MfxMaterialEntry> GetProcessEntries(const CString& strProcess) const override {
        if (strProcess != L"Sand Casting") return {};
        return {{{L"Steel", L"Iron"}}, {{L"Zinc", L"", L"behind the end"}}};
    }
    MfxDatabaseResult GetWriteProblem() const override { return {}; }
    MfxDatabaseResult GetGroups(std::vector<MfxMaterialGroup>&) const override { return {}; }
    MfxDatabaseResult GetMaterials(const MfxGroupKey&, std::vector<MfxMaterial>&) const override {
        return {};
    }
    MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>&) override { return {}; }
    CString FindMaterialGroups(const CString& strFamily) const override { return strFamily + L" 1;;2;"; }

    LibraryPtr m_pLibrary{LoadLibraryW(L"MFXDatabaseu.dll")};
    bool m_bAvailable = true;
};
