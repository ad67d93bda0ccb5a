#include "MaterialImport.h"

#include "DatabaseError.h"
#include "Schema.h"
#include "Text.h"

namespace {

const Connection& WithImportTables(const Connection& connection) {
    MakeImportTables(connection);
    return connection;
}

// A condition on two rows of materials. Units count where there are figures.
std::string Differs(const std::string& older, const std::string& newer) {
    std::string condition = "(" + newer + ".density IS NOT NULL AND " + older + ".density_unit IS NOT " +
                            newer + ".density_unit) OR (coalesce(" + newer + ".minimum_wall, " + newer +
                            ".maximum_wall) IS NOT NULL AND " + older + ".wall_unit IS NOT " + newer +
                            ".wall_unit)";
    for (const std::string figure : {".density", ".minimum_wall", ".maximum_wall"})
        condition += " OR " + older + figure + " IS NOT " + newer + figure;
    return condition;
}

}  // namespace

MaterialImport::MaterialImport(const Connection& connection, const CString& csvPath,
                               const MaterialImportEvents& events)
    : m_connection(WithImportTables(connection)),
      m_csvPath(csvPath),
      m_events(events),
      m_reader(csvPath),
      m_findGroup(connection,
                  "SELECT id, family IS nullif(nullif(?3, ''), ?2) FROM import_group"
                  " WHERE process = ?1 AND name = ?2"),
      m_addGroup(connection,
                 "INSERT INTO import_group(process, name, family)"
                 " VALUES(?1, ?2, nullif(nullif(?3, ''), ?2)) RETURNING id"),
      m_addMaterial(connection,
                    "INSERT INTO import_material(line, group_id, name, density, density_unit, minimum_wall,"
                    "  maximum_wall, wall_unit) VALUES(?, ?, ?, ?, ?, ?, ?, ?)") {}

void MaterialImport::Read() {
    ReadHeadings();
    Transaction transaction(m_connection, Transaction::Kind::Temporary);
    while (m_reader.Next()) {
        ReadLine();
        ReportProgress();
    }
    transaction.Commit();
    ReportRepeatedNames();
}

void MaterialImport::ReadHeadings() {
    const std::string file = ToUtf8(m_csvPath);
    if (!m_reader.Next()) throw DatabaseError(DatabaseRefused, file + " is empty");
    try {
        if (!m_reader.Flaw().empty()) throw DatabaseError(DatabaseRefused, m_reader.Flaw());
        m_headings = ParseHeadings(m_reader.Fields());
    } catch (const DatabaseError& error) {
        const auto line = static_cast<int>(m_reader.Line());
        throw DatabaseError(error.GetProblem(), LinePrefix(m_csvPath, line) + error.what());
    }
}

void MaterialImport::ReadLine() {
    if (!m_reader.Flaw().empty()) return ReportBadLine(m_reader.Line(), m_reader.Flaw());
    try {
        ReadMaterial(ParseLine(m_headings, m_reader.Fields()));
    } catch (const DatabaseError& error) {
        if (error.GetProblem() != DatabaseRefused) throw;
        ReportBadLine(m_reader.Line(), error.what());
    }
}

void MaterialImport::ReadMaterial(const MaterialLine& line) {
    const std::int64_t group = GroupOf(line);
    if (line.material.empty()) return;
    m_addMaterial
        .Bind(static_cast<std::int64_t>(m_reader.Line()), group, line.material, line.density,
              m_headings.units.density, line.minimumWall, line.maximumWall, m_headings.units.wall)
        .Run();
}

std::int64_t MaterialImport::GroupOf(const MaterialLine& line) {
    if (line.group != m_lastGroup.group || line.process != m_lastGroup.process ||
        line.family != m_lastGroup.family || m_lastGroup.id == 0) {
        m_lastGroup.id = 0;
        const std::int64_t id = FindOrAddGroup(line);
        m_lastGroup = {std::string(line.process), std::string(line.family), std::string(line.group), id};
    }
    return m_lastGroup.id;
}

std::int64_t MaterialImport::FindOrAddGroup(const MaterialLine& line) {
    std::int64_t id = 0;
    bool isOfFamily = true;
    m_findGroup.Bind(line.process, line.group, line.family);
    while (m_findGroup.Step()) {
        id = m_findGroup.Integer(0);
        isOfFamily = m_findGroup.Integer(1) != 0;
    }
    if (!isOfFamily)
        throw DatabaseError(DatabaseRefused, "the group " + Quoted(FromUtf8(std::string(line.group))) +
                                                 " has another family in a line above");
    m_addGroup.Bind(line.process, line.group, line.family);
    while (id == 0 && m_addGroup.Step()) {
        id = m_addGroup.Integer(0);
        m_addGroup.Step();
    }
    return id;
}

void MaterialImport::ReportBadLine(std::uint64_t line, const std::string& flaw) {
    ++m_badLines;
    m_events.badLine(line, flaw);
}

void MaterialImport::ReportProgress() {
    if (m_reportedBytes == m_reader.BytesRead()) return;
    m_reportedBytes = m_reader.BytesRead();
    m_events.progress(m_reportedBytes, m_reader.BytesOfFile());
}

void MaterialImport::ReportRepeatedNames() {
    Statement repeated(m_connection,
                       "SELECT line, first, name FROM (SELECT line, name,"
                       "  min(line) OVER (PARTITION BY group_id, name) AS first FROM import_material)"
                       " WHERE line > first ORDER BY line");
    while (repeated.Step())
        ReportBadLine(static_cast<std::uint64_t>(repeated.Integer(0)),
                      "the material " + Quoted(repeated.Text(2)) + " stands in line " +
                          std::to_string(repeated.Integer(1)) + " already");
}

void MaterialImport::FindTargets() const {
    m_connection.Execute(
        "UPDATE import_group AS i SET target_id = (SELECT g.id FROM material_group g"
        "  JOIN process p ON p.id = g.process_id WHERE p.name = i.process AND g.name = i.name)");
}

MaterialImportCounts MaterialImport::Compare() const {
    FindTargets();
    Statement count(m_connection,
                    "SELECT count(*), count(m.id), count(m.id) FILTER (WHERE " + Differs("m", "i") +
                        ") FROM import_material i JOIN import_group g ON g.id = i.group_id"
                        " LEFT JOIN material m ON m.group_id = g.target_id AND m.name = i.name");
    MaterialImportCounts counts;
    while (count.Step()) {
        counts.added = count.Integer(0) - count.Integer(1);
        counts.changed = count.Integer(2);
        counts.unchanged = count.Integer(1) - counts.changed;
    }
    return counts;
}

MaterialImportCounts MaterialImport::Write() const {
    Transaction transaction(m_connection);
    m_connection.Execute(
        "INSERT INTO process(name) SELECT process FROM import_group WHERE true ON CONFLICT DO NOTHING;"
        "INSERT INTO material_group(process_id, name, family)"
        "  SELECT p.id, i.name, i.family FROM import_group i JOIN process p ON p.name = i.process WHERE true"
        "  ON CONFLICT(process_id, name) DO UPDATE SET family = excluded.family"
        "  WHERE excluded.family IS NOT NULL");
    const MaterialImportCounts counts = Compare();
    Statement(
        m_connection,
        "INSERT INTO material(group_id, name, density, density_unit, minimum_wall, maximum_wall, wall_unit)"
        " SELECT g.target_id, i.name, density, density_unit, minimum_wall, maximum_wall, wall_unit"
        " FROM import_material i JOIN import_group g ON g.id = i.group_id WHERE true"
        " ON CONFLICT(group_id, name) DO UPDATE SET density = excluded.density,"
        "  density_unit = excluded.density_unit, minimum_wall = excluded.minimum_wall,"
        "  maximum_wall = excluded.maximum_wall, wall_unit = excluded.wall_unit WHERE " +
            Differs("material", "excluded"))
        .Run();
    transaction.Commit();
    return counts;
}
