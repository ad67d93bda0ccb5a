#pragma once

#include <string>
#include <vector>

// A table of text with aligned columns, for the console. Cells are UTF-8, their control characters are
// escaped; East Asian characters count as two columns.
class TextTable {
  public:
    enum class Align { Left, Right };

    // One alignment per column.
    explicit TextTable(std::vector<Align> columns) : m_columns(std::move(columns)) {}

    // A row may have fewer cells than there are columns.
    void Add(std::vector<std::string> cells);

    // The rows, each indented and ended by a line feed, columns two blanks apart.
    std::string Format(int nIndent) const;

    // For tables too large to keep: makes the columns wide enough for a row, and formats it afterwards.
    void Measure(const std::vector<std::string>& cells);
    std::string FormatRow(const std::vector<std::string>& cells, int nIndent) const;

  private:
    std::vector<Align> m_columns;
    std::vector<std::size_t> m_widths = std::vector<std::size_t>(m_columns.size());
    std::vector<std::vector<std::string>> m_rows;
};
