#include "MaterialEdits.h"

#include "MaterialLimitsCheck.h"
#include "MaterialTables.h"
#include "NumberText.h"

#include <algorithm>
#include <functional>
#include <map>

namespace {

bool IsSame(const MfxMaterial& one, const MfxMaterial& other) {
    return one.strName == other.strName && one.density == other.density &&
           one.densityUnit == other.densityUnit && one.minimumWall == other.minimumWall &&
           one.maximumWall == other.maximumWall && one.wallUnit == other.wallUnit;
}

// The database takes no control characters; a pasted text may have a tab.
CString CleanName(CString strName) {
    for (wchar_t control = 1; control < L' '; ++control) strName.Replace(CString(control), L" ");
    return strName.Trim();
}

CString TextOf(const std::optional<double>& figure) {
    return figure ? FormatDouble(*figure) : CString();
}

// An empty text is a figure that is not known.
bool ReadFigure(CString strText, std::optional<double>& figure) {
    figure.reset();
    if (strText.Trim().IsEmpty()) return true;
    return ReadPositiveNumber(strText, figure.emplace());
}

}  // namespace

bool IsSameName(const CString& strOne, const CString& strOther) {
    if (strOne.GetLength() != strOther.GetLength()) return false;
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; };
    for (int i = 0; i < strOne.GetLength(); ++i)
        if (lower(strOne[i]) != lower(strOther[i])) return false;
    return true;
}

MfxDatabaseResult MaterialEdits::Load(const IDatabaseCollector& database) {
    m_items.clear();
    m_changes.clear();
    std::vector<MfxMaterialGroup> groups;
    if (MfxDatabaseResult result = database.GetGroups(groups); result.problem) return result;
    FindProcess(kSandCastingProcess);
    for (const MfxMaterialGroup& group : groups) {
        const int nGroup = Add(Kind::Group, FindProcess(group.strProcess), group.strName);
        m_items.back().strFamily = group.strFamily;
        std::vector<MfxMaterial> materials;
        MfxDatabaseResult result = database.GetMaterials(GroupKey(nGroup), materials);
        if (result.problem) return result;
        for (MfxMaterial& material : materials)
            m_items.push_back({Kind::Material, nGroup, std::move(material), {}});
    }
    return {};
}

MaterialTexts MaterialEdits::GetTexts(int nItem) const {
    const Item& item = m_items[static_cast<std::size_t>(nItem)];
    const MfxMaterial& material = item.material;
    if (item.kind != Kind::Material) return {material.strName, {}, {}, {}};
    std::optional<double> density = material.density;
    if (density)
        density = CMFXUnitConvertor().ConversionFromOneUnitToAnotherForDensity(*density, material.densityUnit,
                                                                               m_densityUnit);
    return {material.strName, TextOf(density), TextOf(ShownWall(material.minimumWall, material.wallUnit)),
            TextOf(ShownWall(material.maximumWall, material.wallUnit))};
}

MaterialFlaw MaterialEdits::Change(int nItem, const MaterialTexts& texts) {
    Item& item = m_items[static_cast<std::size_t>(nItem)];
    const MaterialTexts shown = GetTexts(nItem);
    if (item.kind == Kind::Process || texts == shown) return MaterialFlaw::None;
    const CString strName = CleanName(texts.strName);
    if (const MaterialFlaw flaw = CheckName(nItem, strName); flaw != MaterialFlaw::None) return flaw;
    if (item.kind == Kind::Group) {
        ChangeGroup(nItem, strName);
        return MaterialFlaw::None;
    }
    MfxMaterial changed = item.material;
    changed.strName = strName;
    if (const MaterialFlaw flaw = ReadFigures(texts, shown, changed); flaw != MaterialFlaw::None) return flaw;
    KeepLoaded(item);
    m_changes.emplace_back(MfxChangeMaterial{{GroupKey(item.nParent), item.material.strName}, changed});
    item.material = changed;
    return MaterialFlaw::None;
}

int MaterialEdits::AddGroup(int nProcess, const CString& strName) {
    const int nGroup = Add(Kind::Group, nProcess, UniqueName(nProcess, strName));
    m_items.back().bNew = true;
    const MfxGroupKey key = GroupKey(nGroup);
    m_changes.emplace_back(MfxAddGroup{{key.strProcess, key.strGroup, {}}});
    return nGroup;
}

int MaterialEdits::AddMaterial(int nGroup, const CString& strName) {
    const int nMaterial = Add(Kind::Material, nGroup, UniqueName(nGroup, strName));
    m_items.back().bNew = true;
    m_changes.emplace_back(MfxAddMaterial{GroupKey(nGroup), m_items.back().material});
    return nMaterial;
}

void MaterialEdits::Delete(int nItem) {
    Item& item = m_items[static_cast<std::size_t>(nItem)];
    if (item.kind == Kind::Process) return;
    KeepLoaded(item);
    item.bDeleted = true;
    if (item.kind == Kind::Group)
        m_changes.emplace_back(MfxDeleteGroup{GroupKey(nItem)});
    else
        m_changes.emplace_back(MfxDeleteMaterial{{GroupKey(item.nParent), item.material.strName}});
    for (Item& child : m_items) {
        if (child.nParent != nItem || child.bDeleted) continue;
        KeepLoaded(child);
        child.bDeleted = true;
    }
}

MfxDatabaseResult MaterialEdits::Save(IDatabaseCollector& database) {
    if (m_changes.empty()) return {};
    MfxDatabaseResult result = FindConflict(database);
    if (!result.problem) result = database.ApplyChanges(m_changes);
    if (result.problem) return result;
    m_changes.clear();
    for (Item& item : m_items) {
        item.bNew = false;
        item.loaded.reset();
    }
    return result;
}

int MaterialEdits::Add(Kind kind, int nParent, const CString& strName) {
    MfxMaterial material;
    material.strName = strName;
    m_items.push_back({kind, nParent, material, {}});
    return static_cast<int>(m_items.size()) - 1;
}

int MaterialEdits::FindProcess(const CString& strName) {
    const int nProcess = FindName(-1, strName);
    return nProcess >= 0 ? nProcess : Add(Kind::Process, -1, strName);
}

// -1 when there is none.
int MaterialEdits::FindName(int nParent, const CString& strName) const {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        if (item.nParent == nParent && !item.bDeleted && IsSameName(item.material.strName, strName))
            return static_cast<int>(i);
    }
    return -1;
}

CString MaterialEdits::UniqueName(int nParent, const CString& strName) const {
    CString strUnique = strName;
    for (int nNumber = 2; FindName(nParent, strUnique) >= 0; ++nNumber)
        strUnique.Format(L"%s %d", strName.GetString(), nNumber);
    return strUnique;
}

MfxGroupKey MaterialEdits::GroupKey(int nGroup) const {
    const Item& group = m_items[static_cast<std::size_t>(nGroup)];
    return {m_items[static_cast<std::size_t>(group.nParent)].material.strName, group.material.strName};
}

MaterialFlaw MaterialEdits::CheckName(int nItem, const CString& strName) const {
    const Item& item = m_items[static_cast<std::size_t>(nItem)];
    if (strName.IsEmpty()) return MaterialFlaw::NoName;
    if (item.kind == Kind::Group && strName.Find(L';') >= 0) return MaterialFlaw::NameHasSemicolon;
    const int nSame = FindName(item.nParent, strName);
    return nSame >= 0 && nSame != nItem ? MaterialFlaw::NameTwice : MaterialFlaw::None;
}

// Both limits share a unit, so that one which stays goes along.
MaterialFlaw MaterialEdits::ReadFigures(const MaterialTexts& texts, const MaterialTexts& shown,
                                        MfxMaterial& material) const {
    if (texts.strDensity != shown.strDensity) {
        if (!ReadFigure(texts.strDensity, material.density)) return MaterialFlaw::Density;
        material.densityUnit = m_densityUnit;
    }
    const bool bMinimum = texts.strMinimumWall != shown.strMinimumWall;
    const bool bMaximum = texts.strMaximumWall != shown.strMaximumWall;
    if (!bMinimum && !bMaximum) return MaterialFlaw::None;
    material.minimumWall = ShownWall(material.minimumWall, material.wallUnit);
    material.maximumWall = ShownWall(material.maximumWall, material.wallUnit);
    material.wallUnit = m_wallUnit;
    if (bMinimum && !ReadFigure(texts.strMinimumWall, material.minimumWall)) return MaterialFlaw::MinimumWall;
    if (bMaximum && !ReadFigure(texts.strMaximumWall, material.maximumWall)) return MaterialFlaw::MaximumWall;
    const bool bBoth = material.minimumWall && material.maximumWall;
    return bBoth && *material.maximumWall < *material.minimumWall ? MaterialFlaw::MaximumBelowMinimum
                                                                  : MaterialFlaw::None;
}

std::optional<double> MaterialEdits::ShownWall(const std::optional<double>& wall,
                                               MfxLengthUnit_e unit) const {
    if (!wall) return wall;
    return CMFXUnitConvertor().ConversionFromOneUnitToAnother(*wall, QuantityLength, unit, m_wallUnit);
}

void MaterialEdits::KeepLoaded(Item& item) {
    if (!item.bNew && !item.loaded) item.loaded = item.material;
}

// The database itself only sees that a material is gone.
MfxDatabaseResult MaterialEdits::FindConflict(const IDatabaseCollector& database) const {
    std::map<int, std::vector<const MfxMaterial*>> loaded;  // by group
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        if (item.kind == Kind::Material && item.loaded) loaded[item.nParent].push_back(&*item.loaded);
        if (item.kind == Kind::Group && item.loaded && item.bDeleted) loaded[static_cast<int>(i)];
    }
    const auto changedBefore = [](const CString& strName) {
        return MfxDatabaseResult{DatabaseRefused, L"another program has changed \"" + strName + L"\""};
    };
    for (const auto& [nGroup, materials] : loaded) {
        const Item& group = m_items[static_cast<std::size_t>(nGroup)];
        MfxGroupKey key = GroupKey(nGroup);
        if (group.loaded) key.strGroup = group.loaded->strName;
        std::vector<MfxMaterial> present;
        if (auto result = database.GetMaterials(key, present); result.problem) return result;
        for (const MfxMaterial* const pMaterial : materials)
            if (std::ranges::none_of(present, std::bind_front(IsSame, *pMaterial)))
                return changedBefore(pMaterial->strName);
        if (group.bDeleted && present.size() != materials.size()) return changedBefore(key.strGroup);
    }
    return {};
}

// A group that is a family of its own stays one.
void MaterialEdits::ChangeGroup(int nItem, const CString& strName) {
    Item& group = m_items[static_cast<std::size_t>(nItem)];
    KeepLoaded(group);
    if (IsSameName(group.strFamily, group.material.strName)) group.strFamily.Empty();
    m_changes.emplace_back(MfxChangeGroup{GroupKey(nItem), {{}, strName, group.strFamily}});
    group.material.strName = strName;
}
