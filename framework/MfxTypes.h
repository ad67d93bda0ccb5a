// Enumerations that rules, records and hosts exchange as numbers, and the composite value types. They have a
// fixed type, since records may hold any number.
#pragma once

#include <afx.h>

#include <cstdint>
#include <vector>

// Kind of process that a rule belongs to.
enum MFXRuleCategory_e : std::int32_t {
    CategoryNone = 0,
    CategoryInjectionMoulding = 9,
    CategorySandCasting = 19,
};

// Type of a parameter's values. It selects the parameter's text forms; see ParameterXml.h.
enum Type_e : std::int32_t {
    TypeBoolean = 1,
    TypeInteger32 = 2,
    TypeInteger64 = 3,
    TypeDouble = 4,
    TypeText = 5,
    TypeDoublePair = 6,
    TypeTextList = 7,
    TypeTableRow = 8,
};

// How a check compares a measured value with the parameter's values.
enum MfxOperator_e : std::int32_t {
    OperatorNone = 0,    // no comparison; the parameter is not saved
    OperatorRanges = 1,  // values come in pairs or in threes
    OperatorEqual = 3,
    OperatorAtLeast = 7,
    OperatorAtMost = 8,
    OperatorTransient = 12  // used while a check runs; the parameter is not saved
};

// What a parameter's values measure.
enum MfxParamType_e : std::int32_t {
    ParamText = 0,
    ParamLimit = 1,   // a length, or a number without a unit
    ParamTable = 24,  // every value is a table row
    ParamMass = 31,
};

enum MFXConstraintType_e : std::int32_t {
    ConstraintNone = 0,
    ConstraintByMaterial = 1,  // limits that hold for one material or material group
};

// Severity of a result, also the key of a parameter's deviation maps.
enum MfxSeverity_e : std::int32_t { SeverityUnknown = 0, SeverityWarning = 1, SeverityInfo = 2 };

struct MfxDoublePair {
    double first = 0.0;
    double second = 0.0;
    bool operator==(const MfxDoublePair&) const = default;
};

struct MfxTextList {
    std::vector<CString> texts;
    bool operator==(const MfxTextList&) const = default;
};

struct MfxTableRow {
    std::vector<CString> cells;
    bool operator==(const MfxTableRow&) const = default;
};

// A rule's units. Codes: see MFXUnitConvertor.h.
struct UnitPair {
    int m_nLengthUnit = 1;
    int m_nAngleUnit = 0;
    bool operator==(const UnitPair&) const = default;
};
