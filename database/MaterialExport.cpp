#include "MaterialExport.h"

#include "MaterialCsv.h"
#include "MaterialQueries.h"

#include <charconv>

namespace {

// Converting leaves noise in the last digits, which this takes away.
double Rounded(double number) {
    constexpr int kExactDigits = 15;
    char buffer[40];
    const auto end =
        std::to_chars(buffer, std::end(buffer), number, std::chars_format::general, kExactDigits).ptr;
    std::from_chars(buffer, end, number);
    return number;
}

std::optional<double> ConvertDensity(std::optional<double> density, std::int64_t from, long to) {
    if (!density || from == to) return density;
    return Rounded(
        CMFXUnitConvertor().ConversionFromOneUnitToAnotherForDensity(*density, static_cast<long>(from), to));
}

std::optional<double> ConvertWall(std::optional<double> wall, std::int64_t from, long to) {
    if (!wall || from == to) return wall;
    return Rounded(CMFXUnitConvertor().ConversionFromOneUnitToAnother(*wall, QuantityLength,
                                                                      static_cast<long>(from), to));
}

}  // namespace

void ExportMaterials(const Connection& connection, const MaterialExportOptions& options,
                     const std::function<void(std::string_view)>& write) {
    Statement rows(connection,
                   "SELECT p.name, g.family, g.name, m.name, m.density, m.density_unit, m.minimum_wall,"
                   "  m.maximum_wall, m.wall_unit FROM material_group g JOIN process p ON p.id = g.process_id"
                   " LEFT JOIN material m ON m.group_id = g.id ORDER BY g.id, m.id");
    const MaterialUnits units{options.densityUnit.value_or(FindCommonDensityUnit(connection)),
                              options.wallUnit.value_or(FindCommonWallUnit(connection))};
    if (options.hasByteOrderMark) write("\xEF\xBB\xBF");
    write(FormatHeadings(units));
    while (rows.Step())
        write(FormatLine({rows.Utf8(0), rows.Utf8(1), rows.Utf8(2), rows.Utf8(3),
                          ConvertDensity(rows.Real(4), rows.Integer(5), units.density),
                          ConvertWall(rows.Real(6), rows.Integer(8), units.wall),
                          ConvertWall(rows.Real(7), rows.Integer(8), units.wall)}));
}
