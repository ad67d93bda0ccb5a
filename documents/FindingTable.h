// Everything that a check of a rule document can find, in one table.
#pragma once

#include <cstddef>
#include <iterator>

enum class Severity { Hint, Warning, Error };

enum class FindingCode {
    // the document and its rules
    MissingDocumentAttribute,
    NoRule,
    ForeignRule,
    UnknownRule,
    RepeatedRule,
    NestedRule,
    RepeatedAttribute,
    ControlCharacter,
    MissingRuleNumber,
    // their elements
    NotAWholeNumber,
    NotANumber,
    NumberMisread,
    StatusNotBoolean,
    StrayText,
    // parameters
    MissingParameter,
    UnknownParameter,
    RepeatedParameter,
    MissingParameterStatus,
    UnsavedOperator,
    UnpairedRangeValues,
    UnsuitableParameterType,
    TooManyLimitValues,
    TooManyMaterialLimitValues,
    LimitSwitchNotBoolean,
    MissingLimitValue,
    MissingVariation,
    TooManyVariations,
    UnknownMassUnit,
    UnknownSeverity,
    TooManyDeviationValues,
    UnconvertedDeviations,
    // constraints
    ConstraintCount,
    MissingConstraintAttribute,
    MissingConstraintName,
    RepeatedConstraintName,
    UnequalLists,
    // rows of the draft angle table
    TooFewCells,
    TooManyCells,
    CellsNotRead,
    EmptyRequiredCell,
    MissingCell,
    // the material table of older records
    RepeatedLegacyTable,
    CommentLost,
    ContentLost,
    LegacyMaterialTable,
    LegacySwitchedLimit,
    // values: limits of the wall thickness
    LimitNotPositive,
    MinimumAboveMaximum,
    // values: bands
    BandInverted,
    BandEmpty,
    BandGap,
    BandOverlap,
    NoCompleteBand,
    ZeroInBand,
    SizeMissing,
    WeightMissing,
    SizeAndWeightMissing,
    ThicknessMissing,
    ThinnerWall,
    NoDraftBands,
    DraftValueMissing,
    AngleTooLarge,
    AngleGrows,
    // values: variation
    VariationNotPositive,

    Count,
};

struct FindingKind {
    FindingCode code;
    const char* key;    // for programs; never changes
    Severity severity;  // Error: the rule is not what was meant, or would not be after saving
    bool isIgnored;     // the module ignores the content: a converted record would lose or misstate it
    const char* text;   // for people; each {} is an insert
};

inline constexpr FindingKind kFindingKinds[] = {
    {FindingCode::MissingDocumentAttribute, "missing-document-attribute", Severity::Warning, false,
     "MfxRules: {} is missing and reads as {}"},
    {FindingCode::NoRule, "no-rule", Severity::Warning, false, "there is no rule to check"},
    {FindingCode::ForeignRule, "foreign-rule", Severity::Warning, true,
     "a rule of another module, {}, which is not known here"},
    {FindingCode::UnknownRule, "unknown-rule", Severity::Error, true, "module {} has no rule of this name"},
    {FindingCode::RepeatedRule, "repeated-rule", Severity::Warning, false,
     "the document has this rule more than once"},
    {FindingCode::NestedRule, "nested-rule", Severity::Error, true,
     "the rule {} stands inside another element, where it is not read"},
    {FindingCode::RepeatedAttribute, "repeated-attribute", Severity::Error, true,
     "{}: {} is repeated; only the first one is read"},
    {FindingCode::ControlCharacter, "control-character", Severity::Warning, false,
     "{}: {} holds a control character; other programs may refuse the document"},
    {FindingCode::MissingRuleNumber, "missing-rule-number", Severity::Warning, false,
     "Rule: {} is missing and reads as -1"},

    {FindingCode::NotAWholeNumber, "not-a-whole-number", Severity::Error, true, "{} is not a whole number"},
    {FindingCode::NotANumber, "not-a-number", Severity::Error, true, "{}: {} is not a number"},
    {FindingCode::NumberMisread, "number-misread", Severity::Error, true,
     "{}: {} is not a number and reads as {}"},
    {FindingCode::StatusNotBoolean, "status-not-boolean", Severity::Error, true,
     "{}: Status={} is neither 0 nor 1"},
    {FindingCode::StrayText, "stray-text", Severity::Error, true, "{}: the text {} is not read"},

    {FindingCode::MissingParameter, "missing-parameter", Severity::Error, true, "the parameter is missing"},
    {FindingCode::UnknownParameter, "unknown-parameter", Severity::Warning, false,
     "unknown to the rule, left unchanged"},
    {FindingCode::RepeatedParameter, "repeated-parameter", Severity::Error, true,
     "it is repeated; only the first one is read"},
    {FindingCode::MissingParameterStatus, "missing-parameter-status", Severity::Error, true,
     "Parameter: Status is missing"},
    {FindingCode::UnsavedOperator, "unsaved-operator", Severity::Error, true,
     "Operator: it is missing or says that the parameter is not saved"},
    {FindingCode::UnpairedRangeValues, "unpaired-range-values", Severity::Error, true,
     "Operator: it needs values in pairs or threes"},
    {FindingCode::UnsuitableParameterType, "unsuitable-parameter-type", Severity::Error, true,
     "ParameterType: it does not fit the parameter's values"},
    {FindingCode::TooManyLimitValues, "too-many-limit-values", Severity::Error, true,
     "Value: there are {}; a limit has one value, or a switch and one value"},
    {FindingCode::TooManyMaterialLimitValues, "too-many-material-limit-values", Severity::Error, true,
     "Value: there are {}; the limit of a material has one value"},
    {FindingCode::LimitSwitchNotBoolean, "limit-switch-not-boolean", Severity::Error, true,
     "Value: the first of two values must be a switch, 0 or 1, but is {}"},
    {FindingCode::MissingLimitValue, "missing-limit-value", Severity::Error, false,
     "Value: the limit has no value"},
    {FindingCode::MissingVariation, "missing-variation", Severity::Error, false,
     "Value: the variation has no value"},
    {FindingCode::TooManyVariations, "too-many-variations", Severity::Warning, false,
     "Value: there are {}; only the first one is used"},
    {FindingCode::UnknownMassUnit, "unknown-mass-unit", Severity::Error, true,
     "Value: {} is not a mass unit: {}"},
    {FindingCode::UnknownSeverity, "unknown-severity", Severity::Error, true,
     "{}: not a severity (Warning, Info or Unknown)"},
    {FindingCode::TooManyDeviationValues, "too-many-deviation-values", Severity::Error, true,
     "{}: only its first two values are read"},
    {FindingCode::UnconvertedDeviations, "unconverted-deviations", Severity::Hint, false,
     "ResultCriteria: absolute deviations and values keep their numbers when the document's unit changes"},

    {FindingCode::ConstraintCount, "constraint-count", Severity::Error, true,
     "the record has {}, the rule has {}; the record's were not read"},
    {FindingCode::MissingConstraintAttribute, "missing-constraint-attribute", Severity::Error, true,
     "Constraint: {} is missing"},
    {FindingCode::MissingConstraintName, "missing-constraint-name", Severity::Error, false,
     "Constraint: its name is empty"},
    {FindingCode::RepeatedConstraintName, "repeated-constraint-name", Severity::Error, false,
     "Constraint: the name {} is used more than once"},
    {FindingCode::UnequalLists, "unequal-lists", Severity::Error, true,
     "Constraint: its parameters have different numbers of values"},

    {FindingCode::TooFewCells, "too-few-cells", Severity::Error, true,
     "Value: the row has {} instead of five"},
    {FindingCode::TooManyCells, "too-many-cells", Severity::Warning, false,
     "Value: the row has {}; only the first five are used"},
    {FindingCode::CellsNotRead, "cells-not-read", Severity::Error, true,
     "{}: it is missing, and the cells after it are not read"},
    {FindingCode::EmptyRequiredCell, "empty-required-cell", Severity::Warning, false,
     "Value: the dialog would drop this row, because its cell {} is empty"},
    {FindingCode::MissingCell, "missing-cell", Severity::Warning, false,
     "Value: the dialog would drop this row, because its cell {} is missing"},

    {FindingCode::RepeatedLegacyTable, "repeated-legacy-table", Severity::Error, true,
     "it is repeated; only the last one is read"},
    {FindingCode::CommentLost, "comment-lost", Severity::Error, true,
     "a comment in it would be lost by saving"},
    {FindingCode::ContentLost, "content-lost", Severity::Error, true,
     "{}: it would be lost by saving, which replaces this older form"},
    {FindingCode::LegacyMaterialTable, "legacy-material-table", Severity::Hint, false,
     "an older form: saving makes a constraint of each of its materials"},
    {FindingCode::LegacySwitchedLimit, "legacy-switched-limit", Severity::Hint, false,
     "an older form: the first value is a switch, which saving makes the parameter's status"},

    {FindingCode::LimitNotPositive, "limit-not-positive", Severity::Error, false,
     "the limit has to be above zero"},
    {FindingCode::MinimumAboveMaximum, "minimum-above-maximum", Severity::Error, false,
     "the minimum, {}, is above the maximum, {}"},

    {FindingCode::BandInverted, "band-inverted", Severity::Error, false,
     "row {}: the {} ends before it begins"},
    {FindingCode::BandEmpty, "band-empty", Severity::Error, false, "row {}: the {} ends where it begins"},
    {FindingCode::BandGap, "band-gap", Severity::Error, false,
     "row {} begins at {}, but row {} ends at {}: {} between are not covered"},
    {FindingCode::BandOverlap, "band-overlap", Severity::Error, false,
     "row {} begins at {}, but row {} ends at {}: the bands overlap"},
    {FindingCode::NoCompleteBand, "no-complete-band", Severity::Error, false,
     "no band has both sizes or both weights, and a wall thickness"},
    {FindingCode::ZeroInBand, "zero-in-band", Severity::Error, false,
     "row {}: a size, weight or thickness is zero"},
    {FindingCode::SizeMissing, "size-missing", Severity::Error, false,
     "row {}: one of the two sizes is missing"},
    {FindingCode::WeightMissing, "weight-missing", Severity::Error, false,
     "row {}: one of the two weights is missing"},
    {FindingCode::SizeAndWeightMissing, "size-and-weight-missing", Severity::Error, false,
     "row {}: a size and a weight are missing"},
    {FindingCode::ThicknessMissing, "thickness-missing", Severity::Error, false,
     "row {}: the wall thickness is missing"},
    {FindingCode::ThinnerWall, "thinner-wall", Severity::Hint, false,
     "row {}: the wall is thinner than in the band before"},
    {FindingCode::NoDraftBands, "no-draft-bands", Severity::Error, false, "the table is empty"},
    {FindingCode::DraftValueMissing, "draft-value-missing", Severity::Error, false,
     "row {}: a bound or an angle is missing or zero"},
    {FindingCode::AngleTooLarge, "angle-too-large", Severity::Error, false,
     "row {}: angle {}, {}, is not below 90 degrees"},
    {FindingCode::AngleGrows, "angle-grows", Severity::Hint, false,
     "row {}: a draft angle is larger than in the row before"},

    {FindingCode::VariationNotPositive, "variation-not-positive", Severity::Error, false,
     "the variation has to be above zero"},
};

// Rows stand in the order of their codes.
constexpr bool AreFindingKindsInOrder() {
    for (std::size_t i = 0; i < std::size(kFindingKinds); ++i)
        if (kFindingKinds[i].code != static_cast<FindingCode>(i)) return false;
    return std::size(kFindingKinds) == static_cast<std::size_t>(FindingCode::Count);
}
static_assert(AreFindingKindsInOrder());

constexpr const FindingKind& KindOf(FindingCode code) {
    return kFindingKinds[static_cast<std::size_t>(code)];
}
