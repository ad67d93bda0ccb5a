#include "DefaultMaterials.h"

#include "MFXDataHelper.h"
#include "MaterialChanges.h"
#include "MaterialTables.h"
#include "MfxTypes.h"
#include "NumberText.h"

#include <algorithm>

namespace {

struct Process {
    int category;  // MFXRuleCategory_e
    const wchar_t* name;
    const wchar_t* otherGroup;  // of the materials that are not below
};
constexpr Process kProcesses[] = {
    {CategorySandCasting, L"Sand Casting", L"Other Metals"},
    {CategoryInjectionMoulding, L"Injection Moulding", L"Plastics"},
};

struct Membership {
    const wchar_t* member;
    const wchar_t* whole;
};
constexpr Membership kGroupsOfMaterials[] = {
    {L"Aluminium", L"Aluminium Alloys"},         {L"Steel", L"Steel"},
    {L"Magnesium", L"Magnesium and its Alloys"}, {L"Gray Cast Iron", L"Iron"},
    {L"Malleable Cast Iron", L"Iron"},
};
constexpr Membership kFamiliesOfGroups[] = {
    {L"Iron", L"Cast Iron"},
};

template <std::size_t size>
CString Find(const Membership (&memberships)[size], const CString& member, const CString& otherwise) {
    for (const Membership& membership : memberships)
        if (member == membership.member) return membership.whole;
    return otherwise;
}

std::vector<MfxMaterialGroup> GroupsOf(const Process& process) {
    std::vector<MfxMaterialGroup> groups;
    for (const CString name : GetMaterialGroups(process.category))
        groups.push_back({process.name, name, Find(kFamiliesOfGroups, name, name)});
    if (groups.empty()) groups.push_back({process.name, process.otherGroup, process.otherGroup});
    return groups;
}

MfxMaterial MaterialOf(const MaterialThickness& row) {
    MfxMaterial material;
    material.strName = row.pszMaterial;
    material.minimumWall = ParseDouble(row.pszMinimumInch);
    material.maximumWall = ParseDouble(row.pszMaximumInch);
    material.wallUnit = LengthInch;
    return material;
}

}  // namespace

void AddDefaultMaterials(const Connection& connection) {
    std::vector<MfxMaterialChange> changes;
    for (const Process& process : kProcesses) {
        for (const MfxMaterialGroup& group : GroupsOf(process)) changes.emplace_back(MfxAddGroup{group});
        for (const MaterialThickness& row : GetDefaultMaterials(process.category)) {
            const CString group = Find(kGroupsOfMaterials, row.pszMaterial, process.otherGroup);
            changes.emplace_back(MfxAddMaterial{{process.name, group}, MaterialOf(row)});
        }
    }
    MakeChanges(connection, changes);
}

CString FindDefaultGroups(const CString& family) {
    CString found;
    for (const Process& process : kProcesses)
        for (const MfxMaterialGroup& group : GroupsOf(process))
            if (family.CompareNoCase(group.strFamily) == 0) found += group.strName + L";";
    return found;
}
