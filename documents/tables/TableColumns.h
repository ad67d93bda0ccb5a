// The columns of the tables that files keep for people: rules' tables and tables of castings.
#pragma once

#include "RuleValues.h"

#include <span>

// A column by its heading, to which a unit in brackets is added: "minimum [mm]". A Cell may hold "no limit",
// and "-" for a value that is not given.
struct TableColumn {
    const char* heading;
    Quantity quantity = Quantity::None;
    ValueKind kind = ValueKind::Text;
};

// Uniform wall thickness: a line for each material.
namespace MaterialsColumn {
enum Index : std::size_t { Material, Active, Minimum, Maximum, Count };
}
inline constexpr TableColumn kMaterialsColumns[] = {{"material"},
                                                    {"active", Quantity::None, ValueKind::ConstraintActive},
                                                    {"minimum", Quantity::Length, ValueKind::Number},
                                                    {"maximum", Quantity::Length, ValueKind::Number}};
static_assert(std::size(kMaterialsColumns) == MaterialsColumn::Count);

// Wall thickness by cast size and weight: a line for each band, its values in the order of BandCell.
namespace GroupsColumn {
enum Index : std::size_t { Group, Active, FirstOfBand };
}
inline constexpr TableColumn kGroupsColumns[] = {
    {"group"},
    {"active", Quantity::None, ValueKind::ConstraintActive},
    {"size from", Quantity::Length, ValueKind::Cell},
    {"size to", Quantity::Length, ValueKind::Cell},
    {"weight from", Quantity::Mass, ValueKind::Cell},
    {"weight to", Quantity::Mass, ValueKind::Cell},
    {"minimum wall thickness", Quantity::Length, ValueKind::Cell}};

// Wall thickness variation: its one value.
inline constexpr TableColumn kVariationColumns[] = {{"largest variation", Quantity::None, ValueKind::Number}};
