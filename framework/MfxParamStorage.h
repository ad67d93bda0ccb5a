#pragma once

#include "MfxArray.h"
#include "MfxKitExport.h"
#include "MfxTypes.h"

#include <map>
#include <variant>

// The two numbers of one severity in a parameter's result criteria; a second number of 0 or less is not
// given.
struct MfxDeviation {
    double first = 0.0;
    double second = 0.0;
    bool operator==(const MfxDeviation&) const = default;
};

// Deviations by severity code; several entries of one severity keep their order.
using MfxSeverityMap = std::multimap<int, MfxDeviation>;

// A rule's parameter: what it is called, how it is compared, and its values. Owned by a rule or a constraint.
class MFXKIT_API CMfxParamStorage {
  public:
    // Alternative i holds the values of type i + 1 (Type_e).
    using Values = std::variant<MfxArray<bool>, MfxArray<std::int32_t>, MfxArray<std::int64_t>,
                                MfxArray<double>, MfxArray<CString>, MfxArray<MfxDoublePair>,
                                MfxArray<MfxTextList>, MfxArray<MfxTableRow>>;

    explicit CMfxParamStorage(Type_e type);

    Type_e GetType() const { return static_cast<Type_e>(m_values.index() + 1); }

    // The values as T, which must be the C++ type of GetType(); std::bad_variant_access otherwise.
    template <class T>
    MfxArray<T>& GetValues() {
        return std::get<MfxArray<T>>(m_values);
    }
    template <class T>
    const MfxArray<T>& GetValues() const {
        return std::get<MfxArray<T>>(m_values);
    }

    // False for parameters that live only while a rule runs: they are left out of records.
    bool IsSaved() const { return m_operator != OperatorNone && m_operator != OperatorTransient; }

    CString m_strName;  // label in the user's language
    MfxOperator_e m_operator = OperatorNone;
    MfxArray<std::int32_t> m_operatorOptions;
    Values m_values;
    MfxParamType_e m_paramType = ParamText;
    CString m_strRemarks;
    std::int32_t m_nParamId = 0;  // also the string id of the label
    bool m_bStatus = true;        // false: the parameter takes no part in the check
    bool m_bReadOnly = false;
    std::int32_t m_nCriteriaType = 0;
    bool m_bCriteriaStatus = false;
    MfxSeverityMap m_percentDeviation;
    MfxSeverityMap m_absoluteDeviation;
    MfxSeverityMap m_absoluteValue;
};

// A parameter as rules and constraints list it; the list's owner deletes the storage, which is never null.
struct MfxParamRecord {
    Type_e m_type = TypeDouble;
    CMfxParamStorage* m_pStorage = nullptr;
};

using MfxParamArray = MfxArray<MfxParamRecord>;

// The first parameter with that id, or null.
MFXKIT_API CMfxParamStorage* FindParameter(const MfxParamArray& params, long nParamId);

// Deletes the storages and empties the list.
MFXKIT_API void DeleteParameters(MfxParamArray& params);

// A list of copies of the parameters, to be owned by another rule or constraint.
MFXKIT_API MfxParamArray CloneParameters(const MfxParamArray& params);
