#pragma once

#include "CastingLimits.h"
#include "TableTexts.h"

// A table of castings with the limits that they meet.
//
//     name,material,group,size [mm],weight [kg]
//     Housing,Steel,,300,2.5
//
// gets a column for each limit, named by its rule, and one for what could not be answered:
//
//     ...,19010 minimum [mm],19010 maximum [mm],19020 minimum [mm],...,problem
//     ...,4.76,6.35,7.5,...,
//
// Each column may be missing. Numbers under a heading without a unit are in the document's units.
struct CastingTable {
    std::string csv;
    std::size_t castingCount = 0;
    std::size_t problemCount = 0;  // castings with a rule that could not be answered
};

// Throws EditError that names a heading which is wrong. A wrong cell is a problem of its casting.
CastingTable AnswerCastings(const CastingLimits& limits, const TableTexts& castings);
