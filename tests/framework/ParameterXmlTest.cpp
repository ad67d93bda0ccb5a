#include "ParameterXml.h"

#include "FrameworkTestSupport.h"

#include <cstring>
#include <deque>
#include <limits>
#include <regex>
#include <tuple>

using testing::ElementsAre;

namespace {

// Texts that could be taken for separators, markup or layout.
const std::vector<CString> kTexts = {
    L"a;b\\", L"", L" \t ", L";", L"1\r\n2\r3\n", L" <&>\"']]>\u9435\U0001F600 "};

// Values of a parameter type that are hard to keep.
template <class T>
std::deque<T> SampleValues() {
    using Limits = std::numeric_limits<T>;
    if constexpr (std::is_same_v<T, bool>)
        return {true, false};
    else if constexpr (std::is_integral_v<T>)
        return {-7, 0, Limits::min(), Limits::max()};
    else if constexpr (std::is_same_v<T, double>)
        return {0.1, 1.0 / 3, 1e-300, 1e300, -0.0, 0.0, Limits::denorm_min(), -2.2e-310, Limits::max()};
    else if constexpr (std::is_same_v<T, MfxDoublePair>)
        return {{0.1, -0.0}, {0.0, 1e300}, {-1.0 / 3, 1e-300}};
    else if constexpr (std::is_same_v<T, CString>)
        return {kTexts.begin(), kTexts.end()};
    else
        return {T{kTexts}, T{}, T{{L""}}, T{{L"a", L""}}, T{{L"", L"\\;"}}};
}

// Equality to the last bit: a zero's sign counts.
template <class T>
bool IsSame(const T& left, const T& right) {
    if constexpr (std::is_trivially_copyable_v<T>)
        return std::memcmp(&left, &right, sizeof left) == 0;
    else
        return left == right;
}

// The written parameter's text without the layout between elements.
std::string Written(CMfxParamStorage& storage) {
    MfxXMLDocument document;
    const CurrentDocumentScope scope(&document);
    const NodePtr pRule(document.CreateRootNode(L"Rule"));
    pRule->AppendNode(NodePtr(FindParameterSerializer(storage.GetType())->write(storage)).get());
    const std::string text = std::regex_replace(document.ToUtf8(), std::regex(">\n *<"), "><");
    return text.substr(text.find("<Par"), text.rfind("</Rule>") - text.find("<Par"));
}

void Read(CMfxParamStorage& storage, const std::string& parameters) {
    MfxXMLDocument document;
    const NodePtr pRule = ParseRoot(document, "<Rule>" + parameters + "</Rule>");
    FindParameterSerializer(storage.GetType())->read(storage, pRule.get());
}

template <class T>
std::vector<T> ToVector(const MfxArray<T>& array) {
    return std::vector<T>(array.begin(), array.end());
}

// A parameter that differs from a new one in all that a record holds.
CMfxParamStorage FullParameter(Type_e type) {
    CMfxParamStorage storage(type);
    storage.m_strName = L"Largest wall";
    storage.m_nParamId = 10068;
    storage.m_bStatus = false;
    storage.m_operator = OperatorAtMost;
    for (const int nOption : {2, -1}) storage.m_operatorOptions.Add(nOption);
    storage.m_paramType = ParamLimit;
    storage.m_bCriteriaStatus = true;
    storage.m_nCriteriaType = 3;
    storage.m_percentDeviation = {{SeverityWarning, {2.5, 0}}, {SeverityWarning, {2.5, 4}}};
    storage.m_absoluteDeviation = {{7, {1, -1}}, {SeverityInfo, {-0.5, 1e-6}}};
    storage.m_strRemarks = L" <kept>\r\n";
    return storage;
}

template <class T>
class ParameterXmlTypedTest : public ::testing::Test {};
using ValueTypes = ::testing::Types<bool, std::int32_t, std::int64_t, double, CString, MfxDoublePair,
                                    MfxTextList, MfxTableRow>;
TYPED_TEST_SUITE(ParameterXmlTypedTest, ValueTypes);

}  // namespace

TYPED_TEST(ParameterXmlTypedTest, ReadsBackWhatItWrote) {
    for (const MfxParamType_e kind : {ParamLimit, ParamTable}) {
        SCOPED_TRACE(kind);
        const std::size_t nType = CMfxParamStorage::Values(MfxArray<TypeParam>()).index() + 1;
        CMfxParamStorage written = FullParameter(static_cast<Type_e>(nType)), read(written.GetType());
        written.m_paramType = kind;
        std::deque<TypeParam> expected = SampleValues<TypeParam>();
        for (const TypeParam& value : expected) written.GetValues<TypeParam>().Add(value);
        if (nType == TypeTableRow && kind == ParamTable)
            expected.erase(expected.begin() + 1);  // the empty row
        read.m_nParamId = written.m_nParamId;
        read.m_operatorOptions.Add(99);
        read.GetValues<TypeParam>().Add(expected.front());
        read.m_percentDeviation = read.m_absoluteValue = {{SeverityInfo, {9, 9}}};
        Read(read, Written(written));
        EXPECT_EQ(read.m_strName, L"") << "the name stays its own";
        EXPECT_TRUE(!read.m_bStatus && read.m_operator == OperatorAtMost && read.m_paramType == kind);
        EXPECT_THAT(ToVector(read.m_operatorOptions), ElementsAre(2, -1));
        const MfxArray<TypeParam>& values = read.GetValues<TypeParam>();
        EXPECT_TRUE(
            std::equal(values.begin(), values.end(), expected.begin(), expected.end(), IsSame<TypeParam>));
        EXPECT_TRUE(read.m_bCriteriaStatus && read.m_nCriteriaType == 3);
        EXPECT_EQ(read.m_percentDeviation, written.m_percentDeviation);
        EXPECT_EQ(read.m_absoluteDeviation,
                  (MfxSeverityMap{{SeverityUnknown, {1, 0}}, {SeverityInfo, {-0.5, 1e-6}}}));
        EXPECT_TRUE(read.m_absoluteValue.empty());
        EXPECT_EQ(read.m_strRemarks, written.m_strRemarks);
    }
}

TEST(ParameterXmlTest, WritesInItsOrder) {
    const std::string head =
        "<Parameter Name=\"Largest wall\" Type=\"10068\" Status=\"0\"><Operator>8</Operator>";
    const std::string tail =
        "<ResultCriteria Status=\"1\" CriteriaType=\"3\"><PercentDeviation><Warning><Value>2.500000</Value>"
        "</Warning><Warning><Value>2.500000</Value><Value>4.000000</Value></Warning></PercentDeviation>"
        "<AbsoluteDeviation><Info><Value>-0.500000</Value><Value>0.000001</Value></Info>"
        "<Unknown><Value>1.000000</Value></Unknown></AbsoluteDeviation><AbsoluteValue />"
        "</ResultCriteria><Remarks> &lt;kept&gt;\r\n</Remarks></Parameter>";
    CMfxParamStorage list = FullParameter(TypeDouble), table = FullParameter(TypeTableRow);
    for (const double value : {16.0, 0.1}) list.GetValues<double>().Add(value);
    EXPECT_EQ(Written(list), head +
                                 "<OperatorOption>2</OperatorOption><OperatorOption>-1</OperatorOption>"
                                 "<ParameterType>1</ParameterType><Value>16</Value><Value>0.1</Value>" +
                                 tail);
    table.m_operatorOptions.RemoveAll();
    table.m_paramType = ParamTable;
    for (const MfxTableRow& row : {MfxTableRow{{L"a", L"b", L""}}, MfxTableRow{}, MfxTableRow{{L"d"}}})
        table.GetValues<MfxTableRow>().Add(row);
    EXPECT_EQ(Written(table), head +
                                  "<ParameterType>24</ParameterType><Value Attribute1=\"a\" Attribute2=\"b\" "
                                  "Attribute3=\"\" /><Value Attribute1=\"d\" />" +
                                  tail);
}

TEST(ParameterXmlTest, DropsValuesThatAreOfNoUse) {
    const std::tuple<int, int, bool> cases[] = {{1, 5, true},  {1, 1, true},  {1, 7, true},  {1, 4, false},
                                                {1, 6, false}, {1, 9, false}, {1, 0, false}, {8, 5, false},
                                                {8, 0, false}, {-8, 0, true}};
    for (const auto& [nOperator, nValues, bReset] : cases) {
        SCOPED_TRACE(testing::Message() << "operator " << nOperator << ", values " << nValues);
        CMfxParamStorage storage(TypeInteger32);
        storage.m_operator = static_cast<MfxOperator_e>(nOperator);
        storage.m_strRemarks = nOperator < 0 ? L"" : L"remark";
        MfxArray<std::int32_t>& values = storage.GetValues<std::int32_t>();
        values = MfxArray<std::int32_t>(20, 6);
        for (int i = 0; i < nValues; ++i) values.Add(i);
        EXPECT_EQ(Written(storage).find("<Value>") == std::string::npos, bReset || nValues == 0);
        EXPECT_THAT(std::make_tuple(values.m_nCount, values.m_nCapacity, values.m_nGrowBy),
                    bReset ? std::make_tuple(0, 10, 1) : std::make_tuple(nValues, 20, 6));
    }
}

TEST(ParameterXmlTest, FindsItsElementByTheId) {
    const std::string parameters =
        "<Other Type='5'><Operator>1</Operator></Other>"
        "<Parameter Type='abc'><Operator>3</Operator></Parameter><Parameter Type='5'><Operator>7</Operator>"
        "</Parameter><Parameter Type='5'><Operator>8</Operator></Parameter><Parameter Type='-6'/>";
    const std::pair<int, int> operatorsById[] = {{5, 7}, {0, 3}, {-6, 0}, {6, 12}};
    for (const auto& [nId, nOperator] : operatorsById) {
        CMfxParamStorage storage(TypeDouble);
        storage.m_nParamId = nId;
        storage.m_operator = OperatorTransient;
        Read(storage, parameters);
        EXPECT_EQ(storage.m_operator, nOperator) << nId;
    }
    CMfxParamStorage unread = FullParameter(TypeDouble);
    unread.GetValues<double>().Add(1);
    const std::string before = Written(unread);
    Read(unread, parameters);
    FindParameterSerializer(TypeDouble)->read(unread, nullptr);
    EXPECT_EQ(Written(unread), before) << "without an element it stays as it is";
    EXPECT_FALSE(NodePtr(FindParameterSerializer(TypeDouble)->write(unread))) << "no current document";
    EXPECT_FALSE(FindParameterSerializer(0) || FindParameterSerializer(9));
}

TEST(ParameterXmlTest, ReadsWhatIsThere) {
    CMfxParamStorage storage = FullParameter(TypeText);
    storage.GetValues<CString>().Add(L"old");
    Read(storage, "<Parameter Type='10068'/>");
    EXPECT_TRUE(storage.m_bStatus && storage.m_operator == OperatorNone && storage.m_paramType == ParamText);
    EXPECT_TRUE(storage.m_operatorOptions.IsEmpty() && storage.GetValues<CString>().IsEmpty());
    for (const std::string status : {"0", "1", "", "false", "00", " 0"}) {
        Read(storage, "<Parameter Type='10068' Status='" + status + "'/>");
        EXPECT_EQ(storage.m_bStatus, status != "0") << status;
    }
    Read(storage,
         "<Parameter Type='10068'><Operator>3</Operator><Operator>7</Operator><OperatorOption>x"
         "</OperatorOption><ParameterType>1</ParameterType><Value Attribute1='no'>text</Value><Value/>"
         "<ResultCriteria><PercentDeviation><Info/><Fatal><Value>1</Value><Value>-2</Value><Value>3</Value>"
         "</Fatal></PercentDeviation></ResultCriteria></Parameter>");
    EXPECT_EQ(storage.m_operator, OperatorEqual);
    EXPECT_THAT(ToVector(storage.m_operatorOptions), ElementsAre(0));
    EXPECT_THAT(ToVector(storage.GetValues<CString>()), ElementsAre(L"text", L""));
    EXPECT_TRUE(!storage.m_bCriteriaStatus && storage.m_nCriteriaType == 0 &&
                storage.m_absoluteDeviation.empty());
    EXPECT_EQ(storage.m_percentDeviation, (MfxSeverityMap{{SeverityInfo, {}}, {SeverityUnknown, {1, -2}}}));
}
