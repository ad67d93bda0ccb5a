// The vocabulary of rule documents and rule records: every element and attribute name, once. They
// are CString objects, so that reading thousands of records creates none. RuleDocument.h, RuleRecord.h,
// ParameterXml.h and MFXConstraint.h show the elements.
#pragma once

#include "XmlNumber.h"

#include <afx.h>

#include <iterator>

// ---- elements
inline const CString kDocumentTag = L"MfxRules";
inline const CString kRuleTag = L"Rule";
inline const CString kParameterTag = L"Parameter";
inline const CString kConstraintTag = L"Constraint";
inline const CString kOperatorTag = L"Operator";
inline const CString kOperatorOptionTag = L"OperatorOption";
inline const CString kParameterTypeTag = L"ParameterType";
inline const CString kValueTag = L"Value";
inline const CString kCriteriaTag = L"ResultCriteria";
inline const CString kPercentDeviationTag = L"PercentDeviation";
inline const CString kAbsoluteDeviationTag = L"AbsoluteDeviation";
inline const CString kAbsoluteValueTag = L"AbsoluteValue";
inline const CString kWarningTag = L"Warning";
inline const CString kInfoTag = L"Info";
inline const CString kUnknownTag = L"Unknown";
inline const CString kRemarksTag = L"Remarks";

// ---- attributes
inline const CString kVersionAttribute = L"Version";
inline const CString kUnitAttribute = L"Unit";
inline const CString kAngleUnitAttribute = L"AngleUnit";
inline const CString kNameAttribute = L"Name";
inline const CString kStatusAttribute = L"Status";
inline const CString kLifeStatusAttribute = L"LifeStatus";
inline const CString kSummaryAttribute = L"Summary";
inline const CString kModuleAttribute = L"Module";
inline const CString kRuleModuleAttribute = L"RuleModule";
inline const CString kRuleModuleFileNameAttribute = L"RuleModuleFileName";
inline const CString kSeverityAttribute = L"Severity";
inline const CString kRuleCategoryAttribute = L"RuleCategory";
inline const CString kTypeAttribute = L"Type";             // of a parameter its id
inline const CString kConstraintNameAttribute = L"Value";  // of a constraint
inline const CString kCriteriaTypeAttribute = L"CriteriaType";

// Of a table's row each cell is an attribute: "Attribute1" is the first one.
inline constexpr wchar_t kCellAttributePrefix[] = L"Attribute";
inline CString CellAttribute(std::size_t cell) {
    return kCellAttributePrefix + FormatInteger(static_cast<std::int64_t>(cell) + 1);
}
inline bool IsCellAttribute(const CString& name) {
    constexpr int kLength = static_cast<int>(std::size(kCellAttributePrefix)) - 1;
    return name.Left(kLength) == kCellAttributePrefix;
}
