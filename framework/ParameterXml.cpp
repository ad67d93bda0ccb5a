#include "ParameterXml.h"

#include "MfxXMLDocument.h"
#include "MfxXMLInternal.h"
#include "ValueText.h"
#include "XmlNumber.h"

#include <algorithm>
#include <charconv>

namespace {

using mfx_xml::Access;
using mfx_xml::FirstElement;
using mfx_xml::NextElement;
using pugi::xml_node;

// ---- writing

void AppendTextChild(xml_node element, const wchar_t* pszTag, const CString& strText) {
    xml_node child = element.append_child(pszTag);
    if (!strText.IsEmpty()) child.append_child(pugi::node_pcdata).set_value(strText);
}

void AppendAttribute(xml_node element, const wchar_t* pszName, const CString& strValue) {
    element.append_attribute(pszName).set_value(strValue);
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

void WriteIdentity(xml_node element, const CMfxParamStorage& storage) {
    AppendAttribute(element, kNameAttribute, storage.m_strName);
    AppendAttribute(element, kTypeAttribute, FormatInteger(storage.m_nParamId));
    AppendAttribute(element, kStatusAttribute, storage.m_bStatus ? L"1" : L"0");
}

void WriteOperator(xml_node element, const CMfxParamStorage& storage) {
    AppendTextChild(element, kOperatorTag, FormatInteger(storage.m_operator));
    for (const std::int32_t nOption : storage.m_operatorOptions)
        AppendTextChild(element, kOperatorOptionTag, FormatInteger(nOption));
}

// Name of a table cell's attribute, without an allocation: tables have many cells.
class CellName {
  public:
    explicit CellName(std::size_t nCell) {
        std::copy_n(kCellAttributePrefix, kPrefixLength, m_szName);
        char digits[24];
        const char* pEnd = std::to_chars(digits, digits + sizeof digits, nCell + 1).ptr;
        std::copy(const_cast<const char*>(digits), pEnd, m_szName + kPrefixLength);
    }
    operator const wchar_t*() const { return m_szName; }

  private:
    static constexpr std::size_t kPrefixLength = std::size(kCellAttributePrefix) - 1;
    wchar_t m_szName[kPrefixLength + 24] = {};
};

// A row without cells is not written.
void WriteTableRow(xml_node element, const MfxTableRow& row) {
    if (row.cells.empty()) return;
    xml_node value = element.append_child(kValueTag);
    for (std::size_t i = 0; i < row.cells.size(); ++i) AppendAttribute(value, CellName(i), row.cells[i]);
}

template <class T>
void WriteValues(xml_node element, const CMfxParamStorage& storage) {
    for (const T& value : storage.GetValues<T>()) {
        if (storage.m_paramType == ParamTable)
            WriteTableRow(element, ToRow(value));
        else
            AppendTextChild(element, kValueTag, ToText(value));
    }
}

const CString& SeverityTag(int nSeverity) {
    switch (nSeverity) {
        case SeverityWarning:
            return kWarningTag;
        case SeverityInfo:
            return kInfoTag;
        default:
            return kUnknownTag;
    }
}

void WriteSeverityMap(xml_node criteria, const wchar_t* pszTag, const MfxSeverityMap& map) {
    xml_node entries = criteria.append_child(pszTag);
    for (const auto& [nSeverity, deviation] : map) {
        xml_node entry = entries.append_child(SeverityTag(nSeverity));
        AppendTextChild(entry, kValueTag, FormatSixDecimals(deviation.first));
        if (deviation.second > 0.0) AppendTextChild(entry, kValueTag, FormatSixDecimals(deviation.second));
    }
}

void WriteResultCriteria(xml_node element, const CMfxParamStorage& storage) {
    xml_node criteria = element.append_child(kCriteriaTag);
    AppendAttribute(criteria, kStatusAttribute, storage.m_bCriteriaStatus ? L"1" : L"0");
    AppendAttribute(criteria, kCriteriaTypeAttribute, FormatInteger(storage.m_nCriteriaType));
    WriteSeverityMap(criteria, kPercentDeviationTag, storage.m_percentDeviation);
    WriteSeverityMap(criteria, kAbsoluteDeviationTag, storage.m_absoluteDeviation);
    WriteSeverityMap(criteria, kAbsoluteValueTag, storage.m_absoluteValue);
}

template <class T>
MfxXMLNode* WriteParameter(CMfxParamStorage& storage) {
    DropUselessValues<T>(storage);
    MfxXMLDocument* pDocument = MfxXMLDocument::GetCurrent();
    std::unique_ptr<MfxXMLNode> pElement(pDocument ? pDocument->CreateNode(kParameterTag) : nullptr);
    if (!pElement) return nullptr;
    const xml_node element = Access::Element(*pElement);
    WriteIdentity(element, storage);
    WriteOperator(element, storage);
    AppendTextChild(element, kParameterTypeTag, FormatInteger(storage.m_paramType));
    WriteValues<T>(element, storage);
    WriteResultCriteria(element, storage);
    AppendTextChild(element, kRemarksTag, storage.m_strRemarks);
    return pElement.release();
}

// ---- reading; a null node reads as empty

// A number that is missing or unreadable is 0.
std::int32_t ToNumber(const CString& strText) {
    std::int32_t nNumber = 0;
    ParseInteger(strText, nNumber);
    return nNumber;
}

std::int32_t IdOf(xml_node element) {
    return ToNumber(element.attribute(kTypeAttribute).value());
}

xml_node FindElement(xml_node parent, std::int32_t nParamId) {
    xml_node element = FirstElement(parent, kParameterTag);
    while (element && IdOf(element) != nParamId) element = NextElement(element, kParameterTag);
    return element;
}

void ReadOperatorOptions(xml_node element, CMfxParamStorage& storage) {
    storage.m_operatorOptions.RemoveAll();
    for (xml_node option = FirstElement(element, kOperatorOptionTag); option;
         option = NextElement(option, kOperatorOptionTag))
        storage.m_operatorOptions.Add(ToNumber(mfx_xml::TextOf(option)));
}

// Only "0" switches a parameter off: records without the attribute, or with a word in it, mean an active one.
void ReadStatus(xml_node element, CMfxParamStorage& storage) {
    storage.m_bStatus = wcscmp(element.attribute(kStatusAttribute).value(), L"0") != 0;
}

// The cells up to the first number that is missing.
MfxTableRow ReadTableRow(xml_node element) {
    MfxTableRow row;
    row.cells.reserve(8);
    pugi::xml_attribute hint;  // cells mostly stand in their order
    while (const pugi::xml_attribute cell = element.attribute(CellName(row.cells.size()), hint))
        row.cells.emplace_back(cell.value());
    return row;
}

template <class T>
void ReadValues(xml_node element, CMfxParamStorage& storage) {
    MfxArray<T>& values = storage.GetValues<T>();
    values.RemoveAll();
    for (xml_node child = FirstElement(element, kValueTag); child; child = NextElement(child, kValueTag)) {
        T value{};
        if (storage.m_paramType == ParamTable)
            FromRow(ReadTableRow(child), value);
        else
            FromText(mfx_xml::TextOf(child), value);
        values.Add(std::move(value));
    }
}

int SeverityOfTag(const wchar_t* pszTag) {
    if (SeverityTag(SeverityWarning) == pszTag) return SeverityWarning;
    return SeverityTag(SeverityInfo) == pszTag ? SeverityInfo : SeverityUnknown;
}

// An entry's numbers that are missing or no numbers are 0.
MfxDeviation ReadDeviation(xml_node entry) {
    const xml_node first = FirstElement(entry, kValueTag);
    MfxDeviation deviation;
    ParseReal(mfx_xml::TextOf(first), deviation.first);
    ParseReal(mfx_xml::TextOf(NextElement(first, kValueTag)), deviation.second);
    return deviation;
}

void ReadSeverityMap(xml_node entries, MfxSeverityMap& map) {
    map.clear();
    for (const xml_node entry : entries.children())
        if (entry.type() == pugi::node_element)
            map.emplace(SeverityOfTag(entry.name()), ReadDeviation(entry));
}

// Without the element the criteria stay as they are; an attribute that is missing means off and type 0.
void ReadResultCriteria(xml_node element, CMfxParamStorage& storage) {
    const xml_node criteria = FirstElement(element, kCriteriaTag);
    if (!criteria) return;
    storage.m_bCriteriaStatus = wcscmp(criteria.attribute(kStatusAttribute).value(), L"1") == 0;
    storage.m_nCriteriaType = ToNumber(criteria.attribute(kCriteriaTypeAttribute).value());
    ReadSeverityMap(FirstElement(criteria, kPercentDeviationTag), storage.m_percentDeviation);
    ReadSeverityMap(FirstElement(criteria, kAbsoluteDeviationTag), storage.m_absoluteDeviation);
    ReadSeverityMap(FirstElement(criteria, kAbsoluteValueTag), storage.m_absoluteValue);
}

void ReadRemarks(xml_node element, CMfxParamStorage& storage) {
    if (const xml_node remarks = FirstElement(element, kRemarksTag))
        storage.m_strRemarks = mfx_xml::TextOf(remarks);
}

// The name is not read: it is the label in the user's language, which the parameter's creator set.
template <class T>
void ReadParameter(CMfxParamStorage& storage, const MfxXMLNode* pParent) {
    const xml_node element =
        pParent ? FindElement(Access::Element(*pParent), storage.m_nParamId) : xml_node();
    if (!element) return;
    storage.m_operator =
        static_cast<MfxOperator_e>(ToNumber(mfx_xml::TextOf(FirstElement(element, kOperatorTag))));
    ReadOperatorOptions(element, storage);
    storage.m_paramType =
        static_cast<MfxParamType_e>(ToNumber(mfx_xml::TextOf(FirstElement(element, kParameterTypeTag))));
    ReadStatus(element, storage);
    ReadValues<T>(element, storage);
    ReadResultCriteria(element, storage);
    ReadRemarks(element, storage);
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

std::unique_ptr<MfxXMLNode> FindParameterElement(const MfxXMLNode& parent, std::int32_t nParamId) {
    return std::unique_ptr<MfxXMLNode>(Access::Wrap(FindElement(Access::Element(parent), nParamId)));
}

std::int32_t ParameterIdOf(const MfxXMLNode& element) {
    return IdOf(Access::Element(element));
}
