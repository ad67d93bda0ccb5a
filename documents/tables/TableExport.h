#pragma once

#include "MfxRule.h"
#include "ValueContent.h"

#include <string>
#include <vector>

// A rule's table as files keep it: headings with their units, and a line for each material or band. Headings
// are the same in every language.
//
//     material,active,minimum [mm],maximum [mm]                                19010
//     Steel,yes,4.76,6.35
//
//     group,active,size from [mm],size to [mm],weight from [kg],weight to [kg],minimum wall thickness [mm]
//     Steel,yes,0,no limit,-,-,5                                               19020
//
//     largest variation                                                        19030
//     25
//
//     H1,H2,A1,A2,A3                                                           19040, see DraftSheet.h
//     0,25.4,3,3,1.5
//     25.4,,1.5,2.5,
struct ExportedTable {
    std::string name;  // the rule's id
    std::vector<std::string> headings;
    std::vector<std::vector<ValueContent>> lines;  // an empty cell is an empty text
};

// Throws EditError for a table that would not read back: with constraints without a name or of the same name,
// or with bands of draft angles without a lower bound.
ExportedTable ExportTable(const CMfxRule& rule);

// The table as comma-separated values (RFC 4180, UTF-8).
std::string FormatCsv(const ExportedTable& table);
std::string FormatCsvCell(const ValueContent& content);
