#pragma once

#include "CsvReader.h"
#include "IMaterialDatabase.h"
#include "MaterialCsv.h"
#include "Sqlite.h"

// Imports materials. They are collected in temporary tables on disk, with all checks, before the database is
// touched: so other programs wait only for the writing, and a dry run needs no right to write.
class MaterialImport {
  public:
    MaterialImport(const Connection& connection, const CString& csvPath, const MaterialImportEvents& events);

    // Reads the file and finds the bad lines.
    void Read();

    // What Write would do.
    MaterialImportCounts Compare() const;

    // Writes what was read, in one transaction.
    MaterialImportCounts Write() const;

    std::int64_t BadLines() const { return m_badLines; }

  private:
    // The group of the line before: most lines stand in it, too.
    struct LastGroup {
        std::string process, family, group;
        std::int64_t id = 0;
    };

    void ReadHeadings();
    void ReadLine();
    void ReadMaterial(const MaterialLine& line);
    std::int64_t GroupOf(const MaterialLine& line);
    std::int64_t FindOrAddGroup(const MaterialLine& line);
    void ReportBadLine(std::uint64_t line, const std::string& flaw);
    void ReportProgress();
    void ReportRepeatedNames();
    void FindTargets() const;

    const Connection& m_connection;
    const CString m_csvPath;
    const MaterialImportEvents& m_events;
    CsvReader m_reader;
    MaterialHeadings m_headings;
    Statement m_findGroup, m_addGroup, m_addMaterial;
    LastGroup m_lastGroup;
    std::uint64_t m_reportedBytes = 0;
    std::int64_t m_badLines = 0;
};
