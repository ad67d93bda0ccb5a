#include "MaterialQueries.h"

namespace {

// The only unit that the query finds.
template <class Unit>
Unit FindOnlyUnit(const Connection& connection, std::string_view sql, Unit otherwise) {
    Statement statement(connection, sql);
    if (!statement.Step()) return otherwise;
    const auto unit = static_cast<Unit>(statement.Integer(0));
    return statement.Step() ? otherwise : unit;
}

}  // namespace

std::vector<MfxMaterialEntry> ReadProcessEntries(const Connection& connection, const CString& process) {
    Statement statement(connection,
                        "SELECT g.name, min(g.id) OVER (PARTITION BY coalesce(g.family, g.name)) AS family_id"
                        " FROM material_group g JOIN process p ON p.id = g.process_id"
                        " WHERE p.name = ? ORDER BY family_id, g.id");
    statement.Bind(process);
    std::vector<MfxMaterialEntry> entries;
    for (std::int64_t lastFamily = 0; statement.Step();) {
        const std::int64_t family = statement.Integer(1);
        if (family != lastFamily) entries.emplace_back();
        entries.back().names.push_back(statement.Text(0));
        lastFamily = family;
    }
    return entries;
}

CString ReadGroupsOfFamily(const Connection& connection, const CString& family) {
    Statement statement(connection,
                        "SELECT name FROM material_group WHERE coalesce(family, name) = ? COLLATE NOCASE"
                        " ORDER BY id");
    statement.Bind(family);
    CString groups;
    while (statement.Step()) groups += statement.Text(0) + L";";
    return groups;
}

std::vector<MfxMaterialGroup> ReadGroups(const Connection& connection) {
    Statement statement(connection,
                        "SELECT p.name, g.name, coalesce(g.family, g.name)"
                        " FROM material_group g JOIN process p ON p.id = g.process_id ORDER BY g.id");
    std::vector<MfxMaterialGroup> groups;
    while (statement.Step()) groups.push_back({statement.Text(0), statement.Text(1), statement.Text(2)});
    return groups;
}

std::vector<MfxMaterial> ReadMaterials(const Connection& connection, const MfxGroupKey& group) {
    Statement statement(
        connection,
        "SELECT m.name, m.density, m.density_unit, m.minimum_wall, m.maximum_wall, m.wall_unit"
        " FROM material m JOIN material_group g ON g.id = m.group_id"
        " JOIN process p ON p.id = g.process_id WHERE p.name = ? AND g.name = ? ORDER BY m.id");
    statement.Bind(group.strProcess, group.strGroup);
    std::vector<MfxMaterial> materials;
    while (statement.Step())
        materials.push_back({statement.Text(0), statement.Real(1),
                             static_cast<MfxDensityUnit_e>(statement.Integer(2)), statement.Real(3),
                             statement.Real(4), static_cast<MfxLengthUnit_e>(statement.Integer(5))});
    return materials;
}

MfxDensityUnit_e FindCommonDensityUnit(const Connection& connection) {
    return FindOnlyUnit(connection, "SELECT DISTINCT density_unit FROM material WHERE density IS NOT NULL",
                        DensityKilogramPerCubicMetre);
}

MfxLengthUnit_e FindCommonWallUnit(const Connection& connection) {
    return FindOnlyUnit(connection,
                        "SELECT DISTINCT wall_unit FROM material"
                        " WHERE minimum_wall IS NOT NULL OR maximum_wall IS NOT NULL",
                        LengthMillimetre);
}
