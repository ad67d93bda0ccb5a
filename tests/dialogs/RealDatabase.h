#pragma once

#include "IMaterialDatabase.h"
#include "MFXDataHelper.h"
#include "support/TempFolder.h"

// While it lives, dialogs find the database's own library, with a file of the test's own.
class RealDatabase {
  public:
    RealDatabase() {
        const FARPROC address = GetProcAddress(GetModuleHandleW(kDatabaseLibrary), kDatabaseExport);
        m_pFile = reinterpret_cast<GetDatabaseFunction*>(reinterpret_cast<void (*)()>(address))();
        m_pFile->SetPath(Path());
        mfx_db::MFXDataHelper::getInstance().SetCollector(dynamic_cast<IDatabaseCollector*>(m_pFile));
    }
    ~RealDatabase() { m_pFile->SetPath(L""); }  // closes the file
    RealDatabase(const RealDatabase&) = delete;
    RealDatabase& operator=(const RealDatabase&) = delete;

    CString Path(const wchar_t* pszName = L"m.db") const { return m_folder.Path(pszName).c_str(); }
    IMaterialDatabase* operator->() const { return m_pFile; }
    IDatabaseCollector& Collector() const { return *mfx_db::MFXDataHelper::getInstance(); }
    std::string Read(const wchar_t* pszName) const { return m_folder.Read(pszName); }
    void Write(const wchar_t* pszName, const std::string& bytes) const { m_folder.Write(pszName, bytes); }

    // The names of a group's materials, each followed by ";".
    CString Names(const wchar_t* pszGroup) const {
        std::vector<MfxMaterial> materials;
        Collector().GetMaterials({L"Sand Casting", pszGroup}, materials);
        CString names;
        for (const MfxMaterial& material : materials) names += material.strName + L";";
        return names;
    }

  private:
    TempFolder m_folder;
    IMaterialDatabase* m_pFile = nullptr;
};
