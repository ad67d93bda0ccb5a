#include "ParameterXml.h"

#include "FrameworkTestSupport.h"
#include "ValueText.h"

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
    if constexpr (std::is_integral_v<T>)
        return {Limits::min(), 0, 1, Limits::max()};
    else if constexpr (std::is_same_v<T, double>)
        return {0.1, 1.0 / 3, 1e-300, 1e300, -0.0, 0.0, Limits::denorm_min(), -2.2e-310, Limits::max()};
    else if constexpr (std::is_same_v<T, MfxDoublePair>)
        return {{0.1, -0.0}, {0.0, 1e300}, {-1.0 / 3, 1e-300}};
    else if constexpr (std::is_same_v<T, CString>)
        return {kTexts.begin(), kTexts.end()};
    else
        return {T{kTexts}, T{}, T{{L""}}, T{{L"a", L""}}, T{{L"", L"\\;"}}};
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
std::deque<T> Elements(const MfxArray<T>& array) {
    return std::deque<T>(array.begin(), array.end());
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
    storage.m_absoluteDeviation = {{SeverityUnknown, {1, -1}}, {SeverityInfo, {-0.5, 1e-6}}};
    storage.m_strRemarks = L" <kept>\r\n";
    return storage;
}

// A value's reading must not depend on what the value was.
template <class T>
T FromTextTo(T value, const CString& strText) {
    FromText(strText, value);
    return value;
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
        const std::string text = Written(written);
        Read(read, text);
        EXPECT_EQ(Elements(read.GetValues<TypeParam>()), expected);
        EXPECT_EQ(read.m_strName, L"") << "the name stays its own";
        read.m_strName = written.m_strName;
        EXPECT_EQ(Written(read), text) << "a zero's sign counts, too";
    }
}

TEST(ParameterXmlTest, WritesInItsOrder) {
    CMfxParamStorage table = FullParameter(TypeTableRow);
    table.m_paramType = ParamTable;
    table.m_absoluteValue = {{7, {3, 0}}};
    for (const MfxTableRow& row : {MfxTableRow{{L"a", L"b", L""}}, MfxTableRow{}, MfxTableRow{{L"d"}}})
        table.GetValues<MfxTableRow>().Add(row);
    EXPECT_EQ(
        Written(table),
        "<Parameter Name=\"Largest wall\" Type=\"10068\" Status=\"0\"><Operator>8</Operator>"
        "<OperatorOption>2</OperatorOption><OperatorOption>-1</OperatorOption><ParameterType>24</"
        "ParameterType>"
        "<Value Attribute1=\"a\" Attribute2=\"b\" Attribute3=\"\" /><Value Attribute1=\"d\" />"
        "<ResultCriteria Status=\"1\" CriteriaType=\"3\"><PercentDeviation><Warning><Value>2.500000</Value>"
        "</Warning><Warning><Value>2.500000</Value><Value>4.000000</Value></Warning></PercentDeviation>"
        "<AbsoluteDeviation><Unknown><Value>1.000000</Value></Unknown>"
        "<Info><Value>-0.500000</Value><Value>0.000001</Value></Info></AbsoluteDeviation>"
        "<AbsoluteValue><Unknown><Value>3.000000</Value></Unknown></AbsoluteValue>"
        "</ResultCriteria><Remarks> &lt;kept&gt;\r\n</Remarks></Parameter>");
}

TEST(ParameterXmlTest, DropsValuesThatAreOfNoUse) {
    const std::tuple<MfxOperator_e, int, LPCWSTR, bool> cases[] = {
        {OperatorRanges, 1, L"r", true},  {OperatorRanges, 7, L"r", true},  {OperatorRanges, 4, L"r", false},
        {OperatorRanges, 9, L"r", false}, {OperatorRanges, 0, L"r", false}, {OperatorAtMost, 5, L"r", false},
        {OperatorAtMost, 0, L"", true}};
    for (const auto& [op, nValues, pszRemarks, bReset] : cases) {
        SCOPED_TRACE(testing::Message() << "operator " << op << ", values " << nValues);
        CMfxParamStorage storage(TypeInteger32);
        storage.m_operator = op;
        storage.m_strRemarks = pszRemarks;
        MfxArray<std::int32_t>& values = storage.GetValues<std::int32_t>() = MfxArray<std::int32_t>(20, 6);
        for (int i = 0; i < nValues; ++i) values.Add(i);
        EXPECT_EQ(Written(storage).find("<Value>") == std::string::npos, bReset || nValues == 0);
        EXPECT_THAT(std::make_tuple(values.m_nCount, values.m_nCapacity, values.m_nGrowBy),
                    bReset ? std::make_tuple(0, 10, 1) : std::make_tuple(nValues, 20, 6));
    }
}

TEST(ParameterXmlTest, ReadsWhatIsThereUnderItsId) {
    const std::string parameters =
        "<Other Type='5'><Operator>1</Operator></Other><Parameter Type='5'><Operator>7</Operator>"
        "</Parameter><Parameter Type='5'><Operator>8</Operator></Parameter><Parameter Type='-6'/>";
    CMfxParamStorage storage = FullParameter(TypeText);
    storage.GetValues<CString>().Add(L"old");
    const std::string before = Written(storage);
    Read(storage, parameters);
    FindParameterSerializer(TypeText)->read(storage, nullptr);
    EXPECT_EQ(Written(storage), before) << "without an element it stays as it is";
    EXPECT_FALSE(NodePtr(FindParameterSerializer(TypeText)->write(storage))) << "no current document";
    for (const int nUnknown : {0, 9}) EXPECT_FALSE(FindParameterSerializer(nUnknown));
    for (const auto& [nId, nOperator] : {std::pair{5, 7}, {-6, 0}}) {
        storage.m_nParamId = nId;
        Read(storage, parameters);
        EXPECT_EQ(storage.m_operator, nOperator) << nId;
    }
    EXPECT_EQ(storage.m_paramType, ParamText);
    EXPECT_TRUE(storage.m_operatorOptions.IsEmpty());
    EXPECT_TRUE(storage.GetValues<CString>().IsEmpty());
    for (const std::string status : {"0", "1", "", "00"}) {
        Read(storage, "<Parameter Type='-6' Status='" + status + "'/>");
        EXPECT_EQ(storage.m_bStatus, status != "0") << status;
    }
    Read(storage,
         "<Parameter Type='-6'><Operator>3</Operator><Operator>7</Operator><OperatorOption>x"
         "</OperatorOption><ParameterType>1</ParameterType><Value Attribute1='no'>text</Value><Value/>"
         "<ResultCriteria><PercentDeviation><Info/><Fatal><Value>1</Value><Value>-2</Value><Value>3</Value>"
         "</Fatal></PercentDeviation></ResultCriteria></Parameter>");
    EXPECT_EQ(storage.m_operator, OperatorEqual);
    EXPECT_THAT(Elements(storage.m_operatorOptions), ElementsAre(0));
    EXPECT_THAT(Elements(storage.GetValues<CString>()), ElementsAre(L"text", L""));
    EXPECT_FALSE(storage.m_bCriteriaStatus);
    EXPECT_TRUE(storage.m_absoluteDeviation.empty());
    EXPECT_EQ(storage.m_percentDeviation, (MfxSeverityMap{{SeverityInfo, {}}, {SeverityUnknown, {1, -2}}}));
}

TEST(ValueTextTest, HasItsDocumentedFormsAndReadsOthers) {
    EXPECT_EQ(ToText(true) + ToText(false), L"10");
    EXPECT_EQ(ToText(MfxDoublePair{0.5, 1e-300}), L"0.5;1e-300");
    EXPECT_EQ(ToText(MfxTextList{{L"a", L"b;c", L"\\", L""}}), L"a;b\\;c;\\\\;;");
    EXPECT_EQ(ToRow(CString(L"a;b")), MfxTableRow{{L"a;b"}});
    CString strCells;
    FromRow(MfxTableRow{{L"a;", L"b"}}, strCells);
    EXPECT_EQ(strCells, L"a\\;;b;") << "several cells as one text lose nothing";

    const MfxTextList old{{L"old"}};
    EXPECT_EQ(FromTextTo(old, L"a;b\\"), (MfxTextList{{L"a", L"b\\"}})) << "as typed by hand";
    EXPECT_EQ(FromTextTo(old, L""), MfxTextList{});
    EXPECT_EQ(FromTextTo(MfxDoublePair{8, 9}, L"x; 2"), (MfxDoublePair{0, 2}));
    EXPECT_EQ(FromTextTo(MfxDoublePair{8, 9}, L"3"), (MfxDoublePair{3, 0}));
    EXPECT_TRUE(FromTextTo(false, L"2"));
    EXPECT_FALSE(FromTextTo(true, L"abc"));
    EXPECT_EQ(FromTextTo(9.0, L"abc"), 0);
    EXPECT_EQ(FromTextTo(std::int32_t{9}, L""), 0);
    EXPECT_EQ(FromTextTo(std::int64_t{9}, L"x"), 0);
}
