#include "MaterialChanges.h"

#include "DatabaseError.h"
#include "Text.h"

namespace {

[[noreturn]] void Refuse(const std::string& message) {
    throw DatabaseError(DatabaseRefused, message);
}

std::string GroupName(const CString& process, const CString& group) {
    return Quoted(process + L"/" + group);
}

std::string MaterialName(const MfxGroupKey& group, const CString& material) {
    return Quoted(group.strProcess + L"/" + group.strGroup + L"/" + material);
}

// Makes changes one by one.
class Changer {
  public:
    explicit Changer(const Connection& connection) : m_connection(connection) {}

    void operator()(const MfxAddGroup& change) const {
        const MfxMaterialGroup& group = change.group;
        Statement(m_connection, "INSERT INTO process(name) VALUES(?) ON CONFLICT DO NOTHING")
            .Bind(group.strProcess)
            .Run();
        Statement insert(m_connection,
                         "INSERT INTO material_group(process_id, name, family)"
                         " SELECT id, ?2, nullif(?3, ?2) FROM process WHERE name = ?1");
        Run(insert.Bind(group.strProcess, group.strName, FamilyOf(group)),
            "group " + GroupName(group.strProcess, group.strName));
    }

    void operator()(const MfxChangeGroup& change) const {
        Statement update(m_connection,
                         "UPDATE material_group SET name = ?3, family = nullif(?4, ?3)"
                         " WHERE name = ?2 AND process_id = (SELECT id FROM process WHERE name = ?1)");
        Run(update.Bind(change.key.strProcess, change.key.strGroup, change.group.strName,
                        FamilyOf(change.group)),
            "group " + GroupName(change.key.strProcess, change.key.strGroup));
    }

    void operator()(const MfxDeleteGroup& change) const {
        Statement remove(m_connection,
                         "DELETE FROM material_group"
                         " WHERE name = ?2 AND process_id = (SELECT id FROM process WHERE name = ?1)");
        Run(remove.Bind(change.key.strProcess, change.key.strGroup),
            "group " + GroupName(change.key.strProcess, change.key.strGroup));
    }

    void operator()(const MfxAddMaterial& change) const {
        const MfxMaterial& material = change.material;
        Statement insert(m_connection,
                         "INSERT INTO material(group_id, name, density, density_unit, minimum_wall,"
                         "  maximum_wall, wall_unit)"
                         " SELECT g.id, ?3, ?4, ?5, ?6, ?7, ?8 FROM material_group g"
                         " JOIN process p ON p.id = g.process_id WHERE p.name = ?1 AND g.name = ?2");
        Run(insert.Bind(change.group.strProcess, change.group.strGroup, material.strName, material.density,
                        material.densityUnit, material.minimumWall, material.maximumWall, material.wallUnit),
            "material " + MaterialName(change.group, material.strName),
            "group " + GroupName(change.group.strProcess, change.group.strGroup));
    }

    void operator()(const MfxChangeMaterial& change) const {
        const MfxMaterial& material = change.material;
        const auto& [group, name] = change.key;
        Statement update(m_connection,
                         "UPDATE material SET name = ?4, density = ?5, density_unit = ?6, minimum_wall = ?7,"
                         "  maximum_wall = ?8, wall_unit = ?9"
                         " WHERE name = ?3 AND group_id = (SELECT g.id FROM material_group g"
                         "  JOIN process p ON p.id = g.process_id WHERE p.name = ?1 AND g.name = ?2)");
        Run(update.Bind(group.strProcess, group.strGroup, name, material.strName, material.density,
                        material.densityUnit, material.minimumWall, material.maximumWall, material.wallUnit),
            "material " + MaterialName(group, name));
    }

    void operator()(const MfxDeleteMaterial& change) const {
        const auto& [group, name] = change.key;
        Statement remove(m_connection,
                         "DELETE FROM material"
                         " WHERE name = ?3 AND group_id = (SELECT g.id FROM material_group g"
                         "  JOIN process p ON p.id = g.process_id WHERE p.name = ?1 AND g.name = ?2)");
        Run(remove.Bind(group.strProcess, group.strGroup, name), "material " + MaterialName(group, name));
    }

  private:
    static CString FamilyOf(const MfxMaterialGroup& group) {
        return group.strFamily.IsEmpty() ? group.strName : group.strFamily;
    }

    static void Run(Statement& statement, const std::string& subject) { Run(statement, subject, subject); }

    // A change that finds nothing to change is one that another program has overtaken.
    static void Run(Statement& statement, const std::string& subject, const std::string& found) {
        std::int64_t rows = 0;
        try {
            rows = statement.Run();
        } catch (const DatabaseError& error) {
            if (error.GetProblem() != DatabaseRefused) throw;
            Refuse("the " + subject + " is refused: " + error.what());
        }
        if (rows == 0) Refuse("the " + found + " is not in the database any more");
    }

    const Connection& m_connection;
};

}  // namespace

void MakeChanges(const Connection& connection, const std::vector<MfxMaterialChange>& changes) {
    const Changer changer(connection);
    for (const MfxMaterialChange& change : changes) std::visit(changer, change);
}
