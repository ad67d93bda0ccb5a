#include "ParameterXml.h"

#include "MfxXMLDocument.h"
#include "ValueText.h"
#include "XmlNumber.h"

#include <memory>

namespace {

using NodePtr = std::unique_ptr<MfxXMLNode>;
using NodeListPtr = std::unique_ptr<MfxXMLNodeList>;

// ---- writing; every step does nothing for a null element

void AppendTextChild(MfxXMLNode* pElement, const CString& strTag, const CString& strText) {
    if (!pElement) return;
    if (const NodePtr pChild{pElement->AppendNode(strTag)}) pChild->SetNodeValue(strText);
}

// Values that can't be right are dropped from the live parameter, not only from the record: those under
// OperatorRanges that are neither pairs nor threes.
template <class T>
void DropUselessValues(CMfxParamStorage& storage) {
    MfxArray<T>& values = storage.GetValues<T>();
    const int nCount = values.GetCount();
    const bool bNothingSaid = nCount == 0 && storage.m_strRemarks.IsEmpty();
    const bool bOddRanges = storage.m_operator == OperatorRanges && nCount % 3 != 0 && nCount % 2 != 0;
    if (bNothingSaid || bOddRanges) values = MfxArray<T>(10, 1);
}

void WriteIdentity(MfxXMLNode* pElement, const CMfxParamStorage& storage) {
    if (!pElement) return;
    pElement->AddAttribute(L"Name", storage.m_strName);
    pElement->AddAttribute(L"Type", FormatInteger(storage.m_nParamId));
    pElement->AddAttribute(L"Status", storage.m_bStatus ? L"1" : L"0");
}

void WriteOperator(MfxXMLNode* pElement, const CMfxParamStorage& storage) {
    AppendTextChild(pElement, L"Operator", FormatInteger(storage.m_operator));
    for (const std::int32_t nOption : storage.m_operatorOptions)
        AppendTextChild(pElement, L"OperatorOption", FormatInteger(nOption));
}

// A row without cells is not written.
void WriteTableRow(MfxXMLNode* pElement, const MfxTableRow& row) {
    if (!pElement || row.cells.empty()) return;
    const NodePtr pValue{pElement->AppendNode(L"Value")};
    if (!pValue) return;
    int nCell = 0;
    for (const CString& strCell : row.cells)
        pValue->AddAttribute(L"Attribute" + FormatInteger(++nCell), strCell);
}

template <class T>
void WriteValues(MfxXMLNode* pElement, const CMfxParamStorage& storage) {
    for (const T& value : storage.GetValues<T>()) {
        if (storage.m_paramType == ParamTable)
            WriteTableRow(pElement, ToRow(value));
        else
            AppendTextChild(pElement, L"Value", ToText(value));
    }
}

const wchar_t* SeverityTag(int nSeverity) {
    switch (nSeverity) {
        case SeverityWarning:
            return L"Warning";
        case SeverityInfo:
            return L"Info";
        default:
            return L"Unknown";
    }
}

void WriteSeverityMap(MfxXMLNode* pCriteria, const CString& strTag, const MfxSeverityMap& map) {
    if (!pCriteria) return;
    const NodePtr pMap{pCriteria->AppendNode(strTag)};
    if (!pMap) return;
    for (const auto& [nSeverity, deviation] : map) {
        const NodePtr pEntry{pMap->AppendNode(SeverityTag(nSeverity))};
        AppendTextChild(pEntry.get(), L"Value", FormatSixDecimals(deviation.first));
        if (deviation.second > 0.0)
            AppendTextChild(pEntry.get(), L"Value", FormatSixDecimals(deviation.second));
    }
}

void WriteResultCriteria(MfxXMLNode* pElement, const CMfxParamStorage& storage) {
    if (!pElement) return;
    const NodePtr pCriteria{pElement->AppendNode(L"ResultCriteria")};
    if (!pCriteria) return;
    pCriteria->AddAttribute(L"Status", storage.m_bCriteriaStatus ? L"1" : L"0");
    pCriteria->AddAttribute(L"CriteriaType", FormatInteger(storage.m_nCriteriaType));
    WriteSeverityMap(pCriteria.get(), L"PercentDeviation", storage.m_percentDeviation);
    WriteSeverityMap(pCriteria.get(), L"AbsoluteDeviation", storage.m_absoluteDeviation);
    WriteSeverityMap(pCriteria.get(), L"AbsoluteValue", storage.m_absoluteValue);
}

template <class T>
MfxXMLNode* WriteParameter(CMfxParamStorage& storage) {
    DropUselessValues<T>(storage);
    MfxXMLDocument* pDocument = MfxXMLDocument::GetCurrent();
    NodePtr pElement{pDocument ? pDocument->CreateNode(L"Parameter") : nullptr};
    WriteIdentity(pElement.get(), storage);
    WriteOperator(pElement.get(), storage);
    AppendTextChild(pElement.get(), L"ParameterType", FormatInteger(storage.m_paramType));
    WriteValues<T>(pElement.get(), storage);
    WriteResultCriteria(pElement.get(), storage);
    AppendTextChild(pElement.get(), L"Remarks", storage.m_strRemarks);
    return pElement.release();
}

// ---- reading; every step does nothing for a null element

NodePtr FindParameterElement(const MfxXMLNode* pParent, std::int32_t nParamId) {
    if (!pParent) return nullptr;
    const NodeListPtr pElements{pParent->GetNodeList(L"Parameter")};
    for (long i = 0; i < pElements->GetSize(); ++i) {
        CString strType;
        (*pElements)[i]->GetAttributeValue(L"Type", strType);
        std::int32_t nType = 0;  // a "Type" that is no number counts as 0
        ParseInteger(strType, nType);
        if (nType == nParamId) return std::make_unique<MfxXMLNode>(*(*pElements)[i]);
    }
    return nullptr;
}

// The number in the first such child, 0 without one.
int ReadNumberChild(const MfxXMLNode* pElement, const CString& strTag) {
    int nNumber = 0;
    if (!pElement) return nNumber;
    if (const NodePtr pChild{pElement->SelectSingleNode(strTag)}) pChild->GetNodeValueInInt(nNumber);
    return nNumber;
}

void ReadOperatorOptions(const MfxXMLNode* pElement, CMfxParamStorage& storage) {
    if (!pElement) return;
    storage.m_operatorOptions.RemoveAll();
    const NodeListPtr pOptions{pElement->GetNodeList(L"OperatorOption")};
    for (long i = 0; i < pOptions->GetSize(); ++i) {
        int nOption = 0;
        (*pOptions)[i]->GetNodeValueInInt(nOption);
        storage.m_operatorOptions.Add(nOption);
    }
}

// Only "0" switches a parameter off: records without the attribute, or with a word in it, mean an active one.
void ReadStatus(const MfxXMLNode* pElement, CMfxParamStorage& storage) {
    if (!pElement) return;
    CString strStatus;
    pElement->GetAttributeValue(L"Status", strStatus);
    storage.m_bStatus = strStatus != L"0";
}

// The cells up to the first number that is missing.
MfxTableRow ReadTableRow(const MfxXMLNode& element) {
    MfxTableRow row;
    CString strCell;
    while (element.GetAttributeValue(L"Attribute" + FormatInteger(static_cast<int>(row.cells.size()) + 1),
                                     strCell))
        row.cells.push_back(strCell);
    return row;
}

template <class T>
void ReadValues(const MfxXMLNode* pElement, CMfxParamStorage& storage) {
    if (!pElement) return;
    MfxArray<T>& values = storage.GetValues<T>();
    values.RemoveAll();
    const NodeListPtr pElements{pElement->GetNodeList(L"Value")};
    for (long i = 0; i < pElements->GetSize(); ++i) {
        T value{};
        if (storage.m_paramType == ParamTable)
            FromRow(ReadTableRow(*(*pElements)[i]), value);
        else
            FromText((*pElements)[i]->GetNodeValue(), value);
        values.Add(value);
    }
}

int SeverityOfTag(const CString& strTag) {
    if (strTag == SeverityTag(SeverityWarning)) return SeverityWarning;
    return strTag == SeverityTag(SeverityInfo) ? SeverityInfo : SeverityUnknown;
}

// An entry's numbers that are missing or no numbers are 0.
MfxDeviation ReadDeviation(const MfxXMLNode& entry) {
    double numbers[2] = {};
    const NodeListPtr pValues{entry.GetNodeList(L"Value")};
    for (long i = 0; i < 2 && i < pValues->GetSize(); ++i) (*pValues)[i]->GetNodeValueInDouble(numbers[i]);
    return {numbers[0], numbers[1]};
}

void ReadSeverityMap(const MfxXMLNode* pCriteria, const CString& strTag, MfxSeverityMap& map) {
    if (!pCriteria) return;
    map.clear();
    const NodePtr pMap{pCriteria->SelectSingleNode(strTag)};
    if (!pMap) return;
    const NodeListPtr pEntries{pMap->GetNodeList(L"")};
    for (long i = 0; i < pEntries->GetSize(); ++i) {
        const MfxXMLNode& entry = *(*pEntries)[i];
        map.emplace(SeverityOfTag(entry.GetNodeName()), ReadDeviation(entry));
    }
}

// Without the element the criteria stay as they are; an attribute that is missing means off and type 0.
void ReadResultCriteria(const MfxXMLNode* pElement, CMfxParamStorage& storage) {
    if (!pElement) return;
    const NodePtr pCriteria{pElement->SelectSingleNode(L"ResultCriteria")};
    if (!pCriteria) return;
    CString strStatus, strType;
    pCriteria->GetAttributeValue(L"Status", strStatus);
    pCriteria->GetAttributeValue(L"CriteriaType", strType);
    storage.m_bCriteriaStatus = strStatus == L"1";
    storage.m_nCriteriaType = 0;
    ParseInteger(strType, storage.m_nCriteriaType);
    ReadSeverityMap(pCriteria.get(), L"PercentDeviation", storage.m_percentDeviation);
    ReadSeverityMap(pCriteria.get(), L"AbsoluteDeviation", storage.m_absoluteDeviation);
    ReadSeverityMap(pCriteria.get(), L"AbsoluteValue", storage.m_absoluteValue);
}

void ReadRemarks(const MfxXMLNode* pElement, CMfxParamStorage& storage) {
    if (!pElement) return;
    if (const NodePtr pRemarks{pElement->SelectSingleNode(L"Remarks")})
        storage.m_strRemarks = pRemarks->GetNodeValue();
}

// The name is not read: it is the label in the user's language, which the parameter's creator set.
template <class T>
void ReadParameter(CMfxParamStorage& storage, const MfxXMLNode* pParent) {
    const NodePtr pElement = FindParameterElement(pParent, storage.m_nParamId);
    if (!pElement) return;
    storage.m_operator = static_cast<MfxOperator_e>(ReadNumberChild(pElement.get(), L"Operator"));
    ReadOperatorOptions(pElement.get(), storage);
    storage.m_paramType = static_cast<MfxParamType_e>(ReadNumberChild(pElement.get(), L"ParameterType"));
    ReadStatus(pElement.get(), storage);
    ReadValues<T>(pElement.get(), storage);
    ReadResultCriteria(pElement.get(), storage);
    ReadRemarks(pElement.get(), storage);
}

template <class T>
constexpr ParameterSerializer kSerializer{&WriteParameter<T>, &ReadParameter<T>};

// In the order of Type_e, from TypeBoolean on.
constexpr const ParameterSerializer* kSerializers[] = {
    &kSerializer<bool>,    &kSerializer<std::int32_t>,  &kSerializer<std::int64_t>, &kSerializer<double>,
    &kSerializer<CString>, &kSerializer<MfxDoublePair>, &kSerializer<MfxTextList>,  &kSerializer<MfxTableRow>,
};
static_assert(std::size(kSerializers) == TypeTableRow);

}  // namespace

const ParameterSerializer* FindParameterSerializer(int nType) {
    return nType >= TypeBoolean && nType <= TypeTableRow ? kSerializers[nType - 1] : nullptr;
}
