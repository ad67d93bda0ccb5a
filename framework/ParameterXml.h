// A parameter as a "Parameter" element, in rule records and in constraints:
//
//   <Parameter Name="Largest wall" Type="10068" Status="1">
//     <Operator>8</Operator>
//     <OperatorOption>2</OperatorOption>                 one per option
//     <ParameterType>1</ParameterType>
//     <Value>16</Value>                                  one per value; text forms: ValueText.h
//     <ResultCriteria Status="1" CriteriaType="0">
//       <PercentDeviation>
//         <Warning><Value>2.500000</Value><Value>4.000000</Value></Warning>
//       </PercentDeviation>
//       <AbsoluteDeviation/>
//       <AbsoluteValue/>
//     </ResultCriteria>
//     <Remarks></Remarks>
//   </Parameter>
//
// A parameter of kind ParamTable has one attribute per cell instead: <Value Attribute1="0.0"
// Attribute2="25.4"/>. "Type" is the parameter's id, the key by which it finds its element again.
#pragma once

#include "MfxKitExport.h"
#include "MfxParamStorage.h"
#include "MfxXMLNode.h"
#include "RecordNames.h"

#include <memory>

// Writer and reader of the parameters of one value type.
struct ParameterSerializer {
    // A new "Parameter" element in the current document, or null when there is no current document. The
    // caller owns the wrapper. A parameter whose values are of no use (see ParameterXml.cpp) loses them here.
    MfxXMLNode* (*write)(CMfxParamStorage& storage);

    // Fills the parameter from the first "Parameter" child that has its id. Without one it stays as it is.
    void (*read)(CMfxParamStorage& storage, const MfxXMLNode* pParent);
};

// The pair for a value type, or null for a number outside Type_e.
MFXKIT_API const ParameterSerializer* FindParameterSerializer(int nType);

// The first "Parameter" child of a rule's or constraint's element with that id, or null.
MFXKIT_API std::unique_ptr<MfxXMLNode> FindParameterElement(const MfxXMLNode& parent, std::int32_t nParamId);

// The id that a "Parameter" element says; 0 when it says none.
MFXKIT_API std::int32_t ParameterIdOf(const MfxXMLNode& element);
