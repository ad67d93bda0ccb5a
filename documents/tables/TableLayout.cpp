#include "TableLayout.h"

#include "CsvText.h"
#include "EditError.h"
#include "NumberText.h"
#include "Text.h"
#include "TypedValue.h"

#include <algorithm>

TableLayout::TableLayout(const TableTexts& table, std::span<const TableColumn> columns,
                         const RuleUnits& units, Columns needed)
    : m_table(table),
      m_columns(columns),
      m_units(units),
      m_places(columns.size()),
      m_unitsOfColumns(columns.size(), units) {
    for (std::size_t place = 0; place < table.headings.cells.size(); ++place) ReadHeading(place);
    for (std::size_t column = 0; column < columns.size() && needed == Columns::All; ++column)
        if (!Has(column))
            RefuseLine(
                table, std::max(table.headings.number, 1),
                "the heading " + std::string(columns[column].heading) + " is missing" + ExpectedHeadings());
}

void TableLayout::ReadHeading(std::size_t place) {
    const std::string& text = m_table.headings.cells[place];
    const int line = m_table.headings.number;
    const CsvHeading heading = SplitCsvHeading(text);
    if (WithoutBlanks(text).empty()) return;  // spreadsheet programs write empty columns
    const auto found = std::ranges::find_if(
        m_columns, [&](const TableColumn& column) { return IsSameWord(heading.name, column.heading); });
    if (found == m_columns.end())
        RefuseCell(m_table, line, place, Quoted(FromUtf8(text)) + " is not a heading" + ExpectedHeadings());
    const auto column = static_cast<std::size_t>(found - m_columns.begin());
    if (Has(column))
        RefuseCell(m_table, line, place, Quoted(FromUtf8(text)) + " stands there twice" + ExpectedHeadings());
    m_places[column] = place;
    if (!heading.unit.empty()) ReadUnit(place, column, heading.unit);
}

void TableLayout::ReadUnit(std::size_t place, std::size_t column, std::string_view unit) {
    const Quantity quantity = m_columns[column].quantity;
    const std::optional<int> code = FindUnitOf(quantity, std::string(unit));
    if (!code)
        RefuseCell(m_table, m_table.headings.number, place,
                   Quoted(FromUtf8(m_table.headings.cells[place])) +
                       (quantity == Quantity::None ? " has no unit" : " has an unknown unit") +
                       KnownUnits(quantity));
    m_unitsOfColumns[column] = WithUnit(m_units, quantity, *code);
}

std::string TableLayout::ExpectedHeadings() const {
    std::string headings;
    for (const TableColumn& column : m_columns)
        headings += (headings.empty() ? "" : ", ") + std::string(column.heading) +
                    (column.quantity == Quantity::None ? "" : " [UNIT]");
    return "; the headings are, in any order, " + headings;
}

const std::string& TableLayout::TextOf(const TableTexts::Line& line, std::size_t column) const {
    static const std::string kNone;
    return Has(column) ? line.cells[*m_places[column]] : kNone;
}

ValueContent TableLayout::ValueOf(const TableTexts::Line& line, std::size_t column) const {
    const auto [heading, quantity, kind] = m_columns[column];
    const RuleUnits& units = m_unitsOfColumns[column];
    const std::string_view text = WithoutBlanks(TextOf(line, column));
    if (kind == ValueKind::Cell && text.empty()) return std::monostate();
    try {
        ValueContent content =
            ParseTypedValue(std::string(text), {.quantity = quantity, .kind = kind}, units);
        if (double* number = std::get_if<double>(&content))
            *number = Convert(*number, column, units, m_units);
        return content;
    } catch (const EditError& error) {
        Refuse(line, column, error.what());
    }
}

// Numbers that are in the units already keep all their digits.
double TableLayout::Convert(double number, std::size_t column, const RuleUnits& from,
                            const RuleUnits& to) const {
    const Quantity quantity = m_columns[column].quantity;
    return UnitSymbol(quantity, from) == UnitSymbol(quantity, to) ? number
                                                                  : ConvertNumber(number, quantity, from, to);
}

double TableLayout::WithKeptDigits(double number, std::size_t column, double before) const {
    const auto shown = [&](double value) {
        return FormatDouble(Convert(value, column, m_units, m_unitsOfColumns[column]));
    };
    return m_table.isWorkbook && shown(number) == shown(before) ? before : number;
}

void TableLayout::Refuse(const TableTexts::Line& line, std::size_t column, const std::string& reason) const {
    RefuseCell(m_table, line.number, m_places[column].value_or(0), reason);
}
