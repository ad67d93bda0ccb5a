// What the editor of the material database edits, without its windows.
#pragma once

#include "MFXDataHelper.h"

enum class MaterialFlaw {
    None,
    NoName,
    NameTwice,  // a group of the process, or a material of the group, has it
    NameHasSemicolon,
    Density,  // neither a number above zero nor empty
    MinimumWall,
    MaximumWall,
    MaximumBelowMinimum,
};

// A material as the editor shows it, in the units that are chosen. Groups and processes have the name alone.
struct MaterialTexts {
    CString strName;
    CString strDensity;
    CString strMinimumWall;
    CString strMaximumWall;

    bool operator==(const MaterialTexts&) const = default;
};

// Processes, groups and materials, the units in which figures are shown, and the changes since the last save.
// Whether the database takes two names for one: the case of the letters A to Z does not matter.
bool IsSameName(const CString& strOne, const CString& strOther);

class MaterialEdits {
  public:
    enum class Kind { Process, Group, Material };

    // Named by its index, which never changes; parents stand before what they hold.
    struct Item {
        Kind kind;
        int nParent = -1;
        MfxMaterial material;  // of a group or process the name alone
        CString strFamily;     // of a group
        bool bDeleted = false;
        bool bNew = false;
        std::optional<MfxMaterial> loaded = {};  // as it was, when it has been changed
    };

    // Forgets what was there. The process of sand castings is there even without groups.
    MfxDatabaseResult Load(const IDatabaseCollector& database);
    const std::vector<Item>& GetItems() const { return m_items; }

    // Another unit changes no material.
    void SetDensityUnit(MfxDensityUnit_e unit) { m_densityUnit = unit; }
    void SetWallUnit(MfxLengthUnit_e unit) { m_wallUnit = unit; }
    MfxDensityUnit_e GetDensityUnit() const { return m_densityUnit; }
    MfxLengthUnit_e GetWallUnit() const { return m_wallUnit; }
    MaterialTexts GetTexts(int nItem) const;

    // Changes what differs from GetTexts, or nothing when there is a flaw. Figures that were not changed keep
    // all of their digits. Processes keep their names.
    MaterialFlaw Change(int nItem, const MaterialTexts& texts);

    // The index of the new item. A name that is there already gets a number.
    int AddGroup(int nProcess, const CString& strName);
    int AddMaterial(int nGroup, const CString& strName);

    // A group goes with its materials. Processes stay.
    void Delete(int nItem);

    const std::vector<MfxMaterialChange>& GetChanges() const { return m_changes; }

    // Makes all changes in the database, or none and keeps them. Refused, too, when another program has
    // changed one of the same materials since Load.
    MfxDatabaseResult Save(IDatabaseCollector& database);

  private:
    int Add(Kind kind, int nParent, const CString& strName);
    int FindProcess(const CString& strName);
    int FindName(int nParent, const CString& strName) const;
    CString UniqueName(int nParent, const CString& strName) const;
    MfxGroupKey GroupKey(int nGroup) const;
    MaterialFlaw CheckName(int nItem, const CString& strName) const;
    MaterialFlaw ReadFigures(const MaterialTexts& texts, const MaterialTexts& shown,
                             MfxMaterial& material) const;
    std::optional<double> ShownWall(const std::optional<double>& wall, MfxLengthUnit_e unit) const;
    static void KeepLoaded(Item& item);
    MfxDatabaseResult FindConflict(const IDatabaseCollector& database) const;
    void ChangeGroup(int nItem, const CString& strName);

    std::vector<Item> m_items;
    std::vector<MfxMaterialChange> m_changes;
    MfxDensityUnit_e m_densityUnit = DensityGramPerCubicCentimetre;
    MfxLengthUnit_e m_wallUnit = LengthMillimetre;
};
