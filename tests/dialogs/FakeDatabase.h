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
    CString FindMaterialGroups(const CString& strFamily) const override { return strFamily + L" 1;;2;"; }

    // Two materials per group; the second one's limits are not known.
    MfxDatabaseResult GetMaterials(const MfxGroupKey& group,
                                   std::vector<MfxMaterial>& materials) const override {
        materials.assign(2, MfxMaterial());
        materials[0].strName = group.strGroup + L" A";
        materials[0].minimumWall = 0.2;
        materials[0].maximumWall = 0.5;
        materials[0].wallUnit = LengthInch;
        materials[1].strName = group.strGroup + L" B";
        return {};
    }
    MfxDatabaseResult GetGroups(std::vector<MfxMaterialGroup>&) const override { return {}; }
    MfxDatabaseResult GetWriteProblem() const override { return {}; }
    MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>&) override { return {}; }

    LibraryPtr m_pLibrary{LoadLibraryW(L"MFXDatabaseu.dll")};
    bool m_bAvailable = true;
};
