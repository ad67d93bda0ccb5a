// A line of materials as comma-separated values; the format is told in IMaterialDatabase.h.
#pragma once

#include "MfxMaterials.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace MaterialColumn {
enum Index : std::size_t { Process, Family, Group, Material, Density, MinimumWall, MaximumWall, Count };
}

struct MaterialUnits {
    MfxDensityUnit_e density = DensityKilogramPerCubicMetre;
    MfxLengthUnit_e wall = LengthMillimetre;
};

// What the headings say: where each column stands, and the units.
struct MaterialHeadings {
    std::array<std::size_t, MaterialColumn::Count> places{};
    MaterialUnits units;
};

// Throws DatabaseError (DatabaseRefused) that names the flaw.
MaterialHeadings ParseHeadings(const std::vector<std::string>& fields);

struct MaterialLine {
    std::string_view process, family, group, material;  // within the fields
    std::optional<double> density, minimumWall, maximumWall;
};

// Throws DatabaseError (DatabaseRefused) that names the flaw.
MaterialLine ParseLine(const MaterialHeadings& headings, const std::vector<std::string>& fields);

// The lines, with their ends.
std::string FormatHeadings(const MaterialUnits& units);
std::string FormatLine(const MaterialLine& line);
