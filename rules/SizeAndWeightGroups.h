#pragma once

#include "SizeAndWeightCheck.h"

#include <afx.h>

#include <array>
#include <map>
#include <span>
#include <vector>

class CMFXWTBasedOnCastSizeAndWeightRule;
class CMfxRule;

// The texts of a row of the band grid; an empty one is a value that is not given.
using BandTexts = std::array<CString, BandCell::Count>;

// What the size-and-weight dialog edits: the bands of each material group, the group that the grid shows, and
// the mass unit. Needs no windows. Nothing reaches the rule before Store.
class SizeAndWeightGroups {
  public:
    using Bands = std::vector<CastSizeAndWeightBand>;

    // The groups of a rule. The last active one becomes the current group. False when the rule has no mass
    // unit.
    bool Load(const CMfxRule& rule);

    // Replaces the rule's constraints and its mass unit. Only the current group is active. The group
    // "Default" is left out.
    void Store(CMFXWTBasedOnCastSizeAndWeightRule& rule) const;

    const std::map<CString, Bands>& GetAll() const { return m_groups; }
    const std::vector<CString>& GetLoadedNames() const { return m_loadedNames; }  // in the rule's order
    std::vector<CString> GetGroupsWithoutBands() const;

    // Whether a wall thickness can be found by a band of any group, or by one of these rows of the grid,
    // which need not be taken over yet.
    bool HasUsableBand(std::span<const BandTexts> rows = {}) const;

    const CString& GetCurrent() const { return m_strCurrent; }  // empty for none

    // A group that does not exist leaves none current.
    void SetCurrent(const CString& strGroup);

    // The rows of the grid for the current group.
    std::vector<BandTexts> GetRows() const;

    // Takes over the grid's rows for the current group, if there is one. A cell whose text did not change
    // keeps its value with all digits. Rows without a lower bound are no bands.
    void TakeRows(std::span<const BandTexts> rows);

    // The check on leaving a group and on OK, of the rows taken last. An empty group passes.
    SizeAndWeightResult Check() const;

    // The first group whose bands have a flaw, empty for none. Groups without bands are passed over.
    CString FindFlawedGroup() const;

    // The check after each edit. The rows become the group's bands only when it finds no flaw.
    SizeAndWeightResult TakeRowsWhileTyping(std::span<const BandTexts> rows);

    // The group that the list does not have any more; empty for none.
    CString FindUnlisted(const std::vector<CString>& listed) const;

    enum class Naming { Ignored, AlreadyThere, Added, Renamed };

    // A name was chosen in the list of groups, which now has the listed names. It becomes current. A group
    // that is not listed any more was renamed: its bands get the new name.
    Naming NameGroup(const CString& strName, const std::vector<CString>& listed);

    // Erases the groups that the list does not have any more; whether there were any. An erased group is not
    // current any more.
    bool EraseUnlisted(const std::vector<CString>& listed);

    int GetMassUnit() const { return m_nMassUnit; }  // MfxMassUnit_e, 0 for none of them
    void ChangeMassUnit(int nMassUnit);              // converts the weights of every group

  private:
    Bands ReadRows(std::span<const BandTexts> rows) const;
    void StoreRows();

    std::map<CString, Bands> m_groups;
    std::vector<CString> m_loadedNames;
    CString m_strCurrent;
    Bands m_rows;  // what the grid shows, row by row, with those that are blank or no bands yet
    int m_nMassUnit = 0;
};
