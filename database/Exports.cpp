// The library's exports. While it is loaded, its database is the one of the process.

#include "MaterialDatabase.h"
#include "NoThrow.h"

extern "C" __declspec(dllexport) GetDatabaseNameFunction GetModuleName;
extern "C" __declspec(dllexport) GetDatabaseFunction GetMaterialDatabase;

namespace {

class LoadedDatabase {
  public:
    LoadedDatabase() { mfx_db::MFXDataHelper::getInstance().SetCollector(&m_database); }
    ~LoadedDatabase() { mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr); }
    LoadedDatabase(const LoadedDatabase&) = delete;
    LoadedDatabase& operator=(const LoadedDatabase&) = delete;

    MaterialDatabase& Get() { return m_database; }

  private:
    MaterialDatabase m_database;
};

LoadedDatabase theDatabase;

}  // namespace

void GetModuleName(CString& name) {
    NoThrow([&] { name = L"Material Database"; });
}

IMaterialDatabase* GetMaterialDatabase() {
    return &theDatabase.Get();
}
