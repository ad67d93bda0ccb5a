#pragma once

#include "MfxKitExport.h"
#include "MfxMaterials.h"

#include <afx.h>

#include <vector>

// Where dialogs read and change material data. No operation throws.
class IDatabaseCollector {
  public:
    virtual ~IDatabaseCollector() = default;

    // Whether the database can be read now. If not, FindMaterialGroups knows the default groups where a
    // database library is loaded, and the other operations find nothing.
    virtual bool IsAvailable() const = 0;

    // Why the database can't be changed; no problem when it can.
    virtual MfxDatabaseResult GetWriteProblem() const = 0;

    // The families of a process, for example "Sand Casting", in the order of their groups.
    virtual std::vector<MfxMaterialEntry> GetProcessEntries(const CString& strProcess) const = 0;

    // The material groups of a family of alloys, in all processes, each followed by ";".
    virtual CString FindMaterialGroups(const CString& strFamily) const = 0;

    // All groups, and the materials of a group, in the order in which they were added. What they have found
    // counts only without a problem.
    virtual MfxDatabaseResult GetGroups(std::vector<MfxMaterialGroup>& groups) const = 0;
    virtual MfxDatabaseResult GetMaterials(const MfxGroupKey& group,
                                           std::vector<MfxMaterial>& materials) const = 0;

    // Makes all of the changes, in their order, or none of them and tells why.
    virtual MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>& changes) = 0;
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
