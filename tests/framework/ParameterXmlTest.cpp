#include "ParameterXml.h"

#include "FrameworkTestSupport.h"
#include "ValueText.h"

#include <deque>
#include <regex>
#include <tuple>

using testing::ElementsAre;

namespace {

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

// Parameter 5 with something everywhere.
std::string FullParameter(MfxParamType_e kind, const std::string& values) {
    return "<Parameter Name=\"\" Type=\"5\" Status=\"0\"><Operator>8</Operator>"
           "<OperatorOption>2</OperatorOption><OperatorOption>-1</OperatorOption><ParameterType>" +
           std::to_string(kind) + "</ParameterType>" + values +
           "<ResultCriteria Status=\"1\" "
           "CriteriaType=\"3\"><PercentDeviation><Warning><Value>2.500000</Value>"
           "</Warning><Warning><Value>2.500000</Value><Value>4.000000</Value></Warning></PercentDeviation>"
           "<AbsoluteDeviation><Unknown><Value>1.000000</Value></Unknown>"
           "<Info><Value>-0.500000</Value><Value>0.000001</Value></Info></AbsoluteDeviation>"
           "<AbsoluteValue><Unknown><Value>3.000000</Value></Unknown></AbsoluteValue>"
           "</ResultCriteria><Remarks> &lt;kept&gt;\r\n</Remarks></Parameter>";
}

// A value's reading must not depend on what the value was.
template <class T>
T FromTextTo(T value, const CString& strText) {
    FromText(strText, value);
    return value;
}

}  // namespace

TEST(ParameterXmlTest, WritesWhatItReadInItsOrder) {
    const std::vector<std::string> kTexts[] = {
        {"1", "0"},
        {"-2147483648", "0", "1", "2147483647"},
        {"-9223372036854775808", "9223372036854775807"},
        {"0.1", "0.3333333333333333", "1e+300", "-0", "0", "5e-324", "1.7976931348623157e+308"},
        {"a;b\\", "", " ", ";", " &lt;&amp;']]\xE9\x90\xB5\xF0\x9F\x98\x80 "},
        {"0.1;-0", "0;1e+300", "-0.3333333333333333;1e-300"},
        {"", ";", "a;;", ";\\\\\\;;"},
        {";", "a;;", ";\\\\\\;;"},
    };
    for (int nType = TypeBoolean; nType <= TypeTableRow; ++nType)
        for (const MfxParamType_e kind : {ParamLimit, ParamTable}) {
            std::string text;
            for (const std::string& value : kTexts[nType - 1])
                text += kind == ParamTable ? "<Value Attribute1=\"" + value + "\" />"
                        : value.empty()    ? "<Value />"
                                           : "<Value>" + value + "</Value>";
            text = FullParameter(kind, text);
            CMfxParamStorage storage(static_cast<Type_e>(nType));
            storage.m_nParamId = 5;
            for (int i = 0; i < 2; ++i) Read(storage, text);
            EXPECT_EQ(Written(storage), text) << "once, though it was read twice";
        }
}

TEST(ParameterXmlTest, WritesNoEmptyRowAndNoSecondNumberBelowZero) {
    CMfxParamStorage table(TypeTableRow);
    table.m_strName = L"Largest wall";
    table.m_paramType = ParamTable;
    table.m_absoluteValue = {{7, {3, -1}}};
    for (const MfxTableRow& row : {MfxTableRow{{L"a", L"b", L""}}, MfxTableRow{}, MfxTableRow{{L"d"}}})
        table.GetValues<MfxTableRow>().Add(row);
    const std::string text = Written(table);
    EXPECT_THAT(text, testing::StartsWith("<Parameter Name=\"Largest wall\" Type=\"0\" Status=\"1\">"));
    EXPECT_THAT(text, testing::HasSubstr("<Value Attribute1=\"a\" Attribute2=\"b\" Attribute3=\"\" />"
                                         "<Value Attribute1=\"d\" /><ResultCriteria "));
    EXPECT_THAT(text, testing::HasSubstr("<AbsoluteValue><Unknown><Value>3.000000</Value></Unknown></Abs"));
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

TEST(ParameterXmlTest, ReadsTheFirstOneWithItsId) {
    const std::string parameters =
        "<Other Type='5'><Operator>1</Operator></Other><Parameter Type='5'><Operator>7</Operator>"
        "</Parameter><Parameter Type='5'><Operator>8</Operator></Parameter><Parameter Type='-6'/>";
    CMfxParamStorage storage(TypeText);
    const std::string before = FullParameter(ParamLimit, "<Value>old</Value>");
    storage.m_nParamId = 5;
    Read(storage, before);
    Read(storage, "<Parameter Type='6'/>");
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
}

TEST(ParameterXmlTest, ReadsWhatOthersWrite) {
    CMfxParamStorage storage(TypeText);
    storage.m_absoluteDeviation = {{SeverityInfo, {9, 9}}};
    Read(storage,
         "<?Parameter?><Parameter><?Operator 9?><?Value "
         "v?><Operator>3</Operator><Operator>7</Operator><OperatorOption>x"
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
