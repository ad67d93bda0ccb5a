#include "MaterialCsv.h"

#include "CsvText.h"
#include "DatabaseError.h"
#include "Text.h"
#include "UnitNames.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// In the order in which an export writes them. Those of figures have a unit in brackets behind them.
constexpr const char* kHeadings[] = {
    "Process", "Family", "Group", "Material", "Density", "Minimum wall thickness", "Maximum wall thickness"};
static_assert(std::size(kHeadings) == MaterialColumn::Count);

[[noreturn]] void Refuse(const std::string& message) {
    throw DatabaseError(DatabaseRefused, message);
}

std::string QuotedUtf8(std::string_view text) {
    return Quoted(FromUtf8(std::string(text)));
}

std::string ExpectedHeadings() {
    return "; the headings are, in any order, Process, Family, Group, Material, Density [UNIT], Minimum wall"
           " thickness [UNIT], Maximum wall thickness [UNIT]";
}

template <class Unit>
Unit ParseUnit(std::span<const UnitName> units, const std::string& heading) {
    const std::string_view name = SplitCsvHeading(heading).unit;
    const std::optional<int> unit = FindUnit(units, name);
    if (!unit)
        Refuse(QuotedUtf8(heading) + (name.empty() ? " has no unit in brackets" : " has an unknown unit") +
               "; those known are " + UnitSymbols(units));
    return static_cast<Unit>(*unit);
}

std::size_t FindColumn(const std::string& field) {
    const std::string_view name = SplitCsvHeading(field).name;
    const auto found =
        std::ranges::find_if(kHeadings, [&](const char* heading) { return IsSameWord(name, heading); });
    if (found == std::end(kHeadings)) Refuse(QuotedUtf8(field) + " is not a heading" + ExpectedHeadings());
    return static_cast<std::size_t>(found - std::begin(kHeadings));
}

std::optional<double> ParseFigure(std::string_view field, std::size_t column) {
    const std::string_view text = WithoutBlanks(field);
    if (text.empty()) return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        Refuse(std::string(kHeadings[column]) + ": " + QuotedUtf8(text) +
               " is not a number with a decimal point");
    return number;
}

std::string FormatFigure(const std::optional<double>& figure) {
    if (!figure) return "";
    char buffer[32];
    return {buffer, std::to_chars(buffer, std::end(buffer), *figure).ptr};
}

}  // namespace

MaterialHeadings ParseHeadings(const std::vector<std::string>& fields) {
    if (const std::string flaw = FindSeparatorFlaw(fields); !flaw.empty()) Refuse(flaw);
    constexpr auto kNone = static_cast<std::size_t>(-1);
    MaterialHeadings headings;
    headings.places.fill(kNone);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::size_t& place = headings.places[FindColumn(fields[i])];
        if (place != kNone) Refuse(QuotedUtf8(fields[i]) + " stands there twice" + ExpectedHeadings());
        place = i;
    }
    const auto missing = std::ranges::find(headings.places, kNone);
    if (missing != headings.places.end())
        Refuse(std::string(kHeadings[missing - headings.places.begin()]) + " is missing" +
               ExpectedHeadings());
    const auto& minimum = fields[headings.places[MaterialColumn::MinimumWall]];
    const auto& maximum = fields[headings.places[MaterialColumn::MaximumWall]];
    headings.units = {
        ParseUnit<MfxDensityUnit_e>(kDensityUnits, fields[headings.places[MaterialColumn::Density]]),
        ParseUnit<MfxLengthUnit_e>(kLengthUnits, minimum)};
    if (ParseUnit<MfxLengthUnit_e>(kLengthUnits, maximum) != headings.units.wall)
        Refuse("the two wall thicknesses have different units");
    return headings;
}

MaterialLine ParseLine(const MaterialHeadings& headings, const std::vector<std::string>& fields) {
    if (fields.size() != MaterialColumn::Count)
        Refuse(Count(fields.size(), "field") + " instead of " + std::to_string(MaterialColumn::Count));
    const auto text = [&](std::size_t column) { return WithoutBlanks(fields[headings.places[column]]); };
    const auto figure = [&](std::size_t column) { return ParseFigure(text(column), column); };
    MaterialLine line{text(MaterialColumn::Process),      text(MaterialColumn::Family),
                      text(MaterialColumn::Group),        text(MaterialColumn::Material),
                      figure(MaterialColumn::Density),    figure(MaterialColumn::MinimumWall),
                      figure(MaterialColumn::MaximumWall)};
    if (line.material.empty() && (line.density || line.minimumWall || line.maximumWall))
        Refuse("the material has no name");
    return line;
}

std::string FormatHeadings(const MaterialUnits& units) {
    std::string line;
    for (std::size_t column = 0; column < MaterialColumn::Count; ++column) {
        line += (column == 0 ? "" : ",") + std::string(kHeadings[column]);
        if (column == MaterialColumn::Density)
            line += " [" + SymbolOfUnit(kDensityUnits, units.density) + "]";
        if (column > MaterialColumn::Density) line += " [" + SymbolOfUnit(kLengthUnits, units.wall) + "]";
    }
    return line + "\r\n";
}

std::string FormatLine(const MaterialLine& line) {
    return CsvField(line.process) + "," + CsvField(line.family) + "," + CsvField(line.group) + "," +
           CsvField(line.material) + "," + FormatFigure(line.density) + "," + FormatFigure(line.minimumWall) +
           "," + FormatFigure(line.maximumWall) + "\r\n";
}
