#pragma once

#include "MfxKitExport.h"

#include <afx.h>

#include <vector>

// One entry of the material database: a material group's names; the first empty name ends them.
struct MfxMaterialEntry {
    std::vector<CString> names;
};

// Where dialogs read material data from.
class IDatabaseCollector {
  public:
    virtual ~IDatabaseCollector() = default;

    // Whether a database is loaded; without one the other operations find nothing.
    virtual bool IsAvailable() const = 0;

    // The entries of a process, for example "Sand Casting".
    virtual std::vector<MfxMaterialEntry> GetProcessEntries(const CString& strProcess) const = 0;

    // The material groups that belong to a family of alloys, each followed by ";".
    virtual CString FindMaterialGroups(const CString& strFamily) const = 0;
};

namespace mfx_db {

// The one access to the material database of the process.
class MFXKIT_API MFXDataHelper {
  public:
    static MFXDataHelper& getInstance();

    // The loaded database, or a collector that answers "not available" until there is one; never null.
    operator IDatabaseCollector*() const;

    // Sets the database, which has to live until it is replaced; null: none is loaded.
    void SetCollector(IDatabaseCollector* pCollector);

  private:
    MFXDataHelper() = default;

    IDatabaseCollector* m_pCollector = nullptr;
};

}  // namespace mfx_db
