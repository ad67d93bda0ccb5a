#pragma once

#include "TableColumns.h"
#include "TableTexts.h"

#include <optional>
#include <vector>

// Where the columns of a table stand in a file, and in what units their numbers are there. Refers to the
// table.
class TableLayout {
  public:
    enum class Columns { All, Some };

    // Numbers under a heading without a unit are in the units given. Throws EditError that names a heading
    // which is unknown, missing or there twice, or whose unit is.
    TableLayout(const TableTexts& table, std::span<const TableColumn> columns, const RuleUnits& units,
                Columns needed);

    bool Has(std::size_t column) const { return m_places[column].has_value(); }
    const std::string& TextOf(const TableTexts::Line& line, std::size_t column) const;

    // The value of a cell, as ParseTypedValue reads it, in the units given to the constructor. Throws
    // EditError that names the cell.
    ValueContent ValueOf(const TableTexts::Line& line, std::size_t column) const;

    // A number that was read; the one before where both show the same digits in the file. Cells of workbooks
    // are read with six decimals.
    double WithKeptDigits(double number, std::size_t column, double before) const;

    // Throws EditError that names the cell.
    [[noreturn]] void Refuse(const TableTexts::Line& line, std::size_t column,
                             const std::string& reason) const;

  private:
    void ReadHeading(std::size_t place);
    void ReadUnit(std::size_t place, std::size_t column, std::string_view unit);
    std::string ExpectedHeadings() const;
    double Convert(double number, std::size_t column, const RuleUnits& from, const RuleUnits& to) const;

    const TableTexts& m_table;
    std::span<const TableColumn> m_columns;
    RuleUnits m_units;
    std::vector<std::optional<std::size_t>> m_places;
    std::vector<RuleUnits> m_unitsOfColumns;
};
