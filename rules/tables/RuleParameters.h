// What records of the module's rules say: the module, and the rules' parameters with their ids and
// quantities. A parameter's id is also the string id of its label.
#pragma once

#include "MfxTypes.h"

// "Module" of every record of this module.
inline constexpr wchar_t kModuleName[] = L"MFXSandCastingRulesValidator";

// Name, in every language, of the material group whose limits hold from the start.
inline constexpr wchar_t kDefaultGroup[] = L"Default";

// Ids of the rules
inline constexpr int kUniformThicknessRuleId = 19010;
inline constexpr int kSizeAndWeightRuleId = 19020;
inline constexpr int kVariationRuleId = 19030;
inline constexpr int kDraftAngleRuleId = 19040;

// Variable draft angle
inline constexpr long kDraftAngleTableId = 29183;

// Uniform wall thickness; the last two come from records of older versions
inline constexpr long kThicknessMinId = 10067;
inline constexpr long kThicknessMaxId = 10068;
inline constexpr long kLegacyMaterialTableId = 10070;
inline constexpr long kLegacyMaterialSwitchId = 10071;

constexpr bool IsLegacyMaterialTable(long nParamId) {
    return nParamId == kLegacyMaterialTableId || nParamId == kLegacyMaterialSwitchId;
}

// Cells of a row of that table.
namespace LegacyTableCell {
enum Index : std::size_t { Material, Minimum, Maximum, Count };
}

// Wall thickness by cast size and weight
inline constexpr long kSizeMinId = 29119;
inline constexpr long kSizeMaxId = 29120;
inline constexpr long kWeightMinId = 29121;
inline constexpr long kWeightMaxId = 29122;
inline constexpr long kThicknessId = 29118;
inline constexpr long kMassUnitId = 10165;

// The lists of a group, in the order of a band's values.
inline constexpr long kBandParameterIds[] = {kSizeMinId, kSizeMaxId, kWeightMinId, kWeightMaxId,
                                             kThicknessId};

// Whether the parameter is a list of the bands, where marks stand for "not given" and "no limit".
constexpr bool IsBandParameter(long nParamId) {
    return nParamId >= kThicknessId && nParamId <= kWeightMaxId;
}

// Wall-thickness variation
inline constexpr long kVariationId = 29167;

// How a parameter of numbers is created.
struct ParameterSpec {
    long nParamId;
    MfxOperator_e op;
    MfxParamType_e paramType;
};

// What a number measures.
enum class Quantity { None, Length, Angle, Mass };

// What a parameter's numbers measure; None for the variation and for parameters of texts.
constexpr Quantity QuantityOfParameter(long nParamId) {
    switch (nParamId) {
        case kThicknessMinId:
        case kThicknessMaxId:
        case kSizeMinId:
        case kSizeMaxId:
        case kThicknessId:
            return Quantity::Length;
        case kWeightMinId:
        case kWeightMaxId:
            return Quantity::Mass;
        default:
            return Quantity::None;
    }
}
