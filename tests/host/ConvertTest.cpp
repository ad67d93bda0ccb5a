#include "HostTest.h"

#include <sstream>

using namespace testing;

static const std::string kRow = R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)";

TEST_F(HostTest, KnowsUnitsAsPeopleTypeThem) {
    const struct {
        std::wstring option;
        std::string attribute, names;
    } kCases[] = {
        {L"--length", " Unit=\"1\"", "mm MM Millimeters millimetre"},
        {L"--length", " Unit=\"2\"", "cm Centimetres"},
        {L"--length", " Unit=\"3\"", "in Inch inches \""},
        {L"--length", " Unit=\"4\"", "m meter metres"},
        {L"--length", " Unit=\"5\"", "ft Foot feet '"},
        {L"--length", " Unit=\"6\"", "um \u00b5m \u03bcm microns"},
        {L"--length", " Unit=\"7\"", "thou mil mils"},
        {L"--length", " Unit=\"8\"", "dm"},
        {L"--length", " Unit=\"9\"", "yd yards"},
        {L"--angle", "AngleUnit=\"0\"", "deg DEG Degrees \u00b0"},
        {L"--angle", "AngleUnit=\"1\"", "rad RAD radians"},
        {L"--angle", "AngleUnit=\"2\"", "gon grad gradians"},
        {L"--angle", "AngleUnit=\"3\"", "arcmin arcminutes \u2032"},
    };
    m_folder.Write(L"d.xml", R"(<MfxRules Unit="2" AngleUnit="2"/>)");
    for (const auto& [option, attribute, names] : kCases) {
        std::istringstream words(names);
        for (std::string name; words >> name;) {
            Run({L"convert", L"d.xml", option, Wide(name), L"-o", L"o.xml"}, 0, _, "");
            EXPECT_THAT(m_folder.Read(L"o.xml"), HasSubstr(attribute)) << name;
        }
    }
    for (const std::wstring name : {L"furlong", L"km", L"m m", L"deg", L"3", L"\\\"a b\\", L"米", L""})
        Run({L"convert", L"d.xml", L"--length", name}, 2, "",
            AllOf(HasSubstr("--length"), HasSubstr('"' + Utf8(name) + '"'), HasSubstr("mm, cm, in")));
}

// The record is written anew, and all that the rule did not take in stays in it.
TEST_F(HostTest, KeepsWhatIsNotUnderstood) {
    const std::string kCases[][3] = {
        {"<MfxRules", "<!-- first -->\n<MfxRules by=\"M &amp; S\"",
         "<!-- first -->\n<MfxRules by=\"M &amp; S\""},
        {"<Rule", "<x:e xmlns:x=\"u\">Ä &lt; b<![CDATA[<r>]]></x:e>\n<?t d?><Rule",
         "<x:e xmlns:x=\"u\">Ä &lt; b<![CDATA[<r>]]></x:e>\n  <?t d?>"},
        {"<Remarks>r", "<Remarks>r; 𠮷&#1;", "<Remarks>r; 𠮷&#01;</Remarks>"},
        {"Severity", "owner=\"me\" Severity", "owner=\"me\""},
        {"<Par", "<!-- why --><Par", "<!-- why -->"},
        {"<Par", "<Parameter Type=\"4711\"><Value>25.4</Value></Parameter><Par", "4711"},
        {"<Remarks>", "<Note>n</Note><Remarks>", "<Note>n</Note>"},
        {"<Rule N", "stray<Rule N", "stray"},
    };
    for (const auto& [part, by, kept] : kCases) {
        SCOPED_TRACE(by);
        m_folder.Write(L"d.xml", Replaced(Document(kRow), part, by));
        Run({L"convert", L"d.xml", L"--length", L"in"}, 0, _, _);
        const std::string after = m_folder.Read(L"d.xml");
        EXPECT_THAT(after, HasSubstr(kept));
        EXPECT_THAT(after, Not(HasSubstr("=\"-1\""))) << "no numbers that were not there";
    }
}

// The material table of older records is replaced by constraints.
TEST_F(HostTest, DropsNothingOfOthersWithAnLegacyTable) {
    const std::string table = m_folder.Read(Wide(MFX_SAMPLES "legacy-material-table.xml"));
    const std::string steel = "<Value Attribute1=\"Steel\"",
                      last = "<Remarks />\n    </Parameter>\n  </Rule>";
    const std::string kCases[][3] = {
        {steel, "<!-- why -->" + steel, ":27: Uniform Wall Thickness: parameter 10070, a comment in it"},
        {steel, steel + " by=\"me\"", ":31: Uniform Wall Thickness: parameter 10070, by: it would be lost"},
        {steel, "<Note>n</Note>" + steel, ":31: Uniform Wall Thickness: parameter 10070, Note: it would"},
        {last, Replaced(last, " />", ">r</Remarks>"), "parameter 10071, Remarks: it would be lost"},
        {"Type=\"10071\"", "Type=\"10070\"", "parameter 10070, it is repeated; only the last"},
    };
    for (const auto& [part, by, finding] : kCases) {
        SCOPED_TRACE(by);
        const std::string document = Replaced(table, part, by);
        m_folder.Write(L"d.xml", document);
        Run({L"convert", L"d.xml", L"--length", L"in"}, 1, "", HasSubstr(finding));
        EXPECT_TRUE(m_folder.Read(L"d.xml") == document);
    }
}

TEST_F(HostTest, NamesTheValuesThatLoseDigits) {
    const std::string place = "d.xml:\\d: Variable Draft Angle: parameter 29183, row 1, ";
    const std::string criteria =
        "<ResultCriteria><AbsoluteDeviation><Info><Value>0.00000025</Value><Value>0.00000125</Value></Info>"
        "</AbsoluteDeviation></ResultCriteria>";
    const auto expectLosses = [&](const std::string& rows, const std::wstring& unit,
                                  const std::string& losses) {
        m_folder.Write(L"d.xml", Document(rows));
        Run({L"convert", L"d.xml", unit == L"arcmin" ? L"--angle" : L"--length", unit}, 0, _,
            ContainsRegex("^" + losses + "$"));
    };
    expectLosses(kRow, L"in", "");
    expectLosses(Replaced(kRow, "25.4", "101"), L"in",
                 place + "to: 101 mm became 3.976378 in instead of 3.976377953 in\n");
    expectLosses(Replaced(kRow, "25.4", "0.0004"), L"m",
                 place + "to: 0.0004 mm became 0 m instead of 0.0000004 m\n");
    expectLosses(Replaced(kRow, "25.4", "1000000000000"), L"m",
                 place + "to: 1000000000000 mm became no limit instead of 1000000000 m\n");
    expectLosses(Replaced(kRow, "/>", " Attribute5=\"\"/>"), L"arcmin",
                 place + "angle 3: an empty cell became 0 arcmin\n");
    expectLosses(kRow + criteria, L"in",
                 place +
                     "Draft angles by size, absolute deviation, info: 0.00000025 became 0 instead of .*\n" +
                     place + "Draft .*, info, second: 0.00000125 became 0.000001 instead of 0.00000125\n");
}

TEST_F(HostTest, NamesTheLargestLossesFirst) {
    const std::string row = Replaced(kRow, "25.4", "101") + "\n";
    m_folder.Write(L"d.xml", Document(Repeated(row, 11) + Replaced(kRow, "25.4", "0.0004")));
    Run({L"convert", L"d.xml", L"--length", L"in", L"-o", L"o.xml"}, 0, _,
        AllOf(StartsWith("d.xml:16: Variable Draft Angle: parameter 29183, row 12, to: 0.0004 mm became"),
              EndsWith("row 9, to: 101 mm became 3.976378 in instead of 3.976377953 in\n"
                       "and 2 more, with smaller losses\n")));
    const ProcessResult run = Run({L"convert", L"d.xml", L"--length", L"in", L"--losses"});
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 12);
}

// Rules convert the values of a parameter, but not its criteria.
TEST_F(HostTest, NamesTheDeviationsThatKeepTheirNumbers) {
    m_folder.Write(L"d.xml",
                   Replaced(m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml")), "<AbsoluteDeviation />",
                            "<AbsoluteDeviation><Info><Value>25.4</Value></Info></AbsoluteDeviation>"));
    Run({L"convert", L"d.xml", L"--length", L"in", L"--lang", L"english"}, 0, _,
        HasSubstr("parameter 10067, row 1, Minimum wall thickness, absolute deviation, info: 25.4 mm became "
                  "25.4 in instead of 1 in\n"));
}

TEST_F(HostTest, ConvertsNoNumberThatIsTooLargeInTheNewUnit) {
    const std::string number = "1" + std::string(307, '0');
    const std::string document =
        Document("<Value Attribute1=\"0\" Attribute2=\"" + number + R"(" Attribute3="3" Attribute4="2"/>)");
    m_folder.Write(L"d.xml", document);
    Run({L"convert", L"d.xml", L"--length", L"um"}, 1, "",
        "d.xml:5: Variable Draft Angle: parameter 29183, row 1, to: 1e+307 mm is too large a number in "
        "um\nmfxhost: d.xml was not converted\n");
    EXPECT_EQ(m_folder.Read(L"d.xml"), document);
    Run({L"convert", L"d.xml", L"--length", L"m"}, 0, _, "");
    EXPECT_THAT(m_folder.Read(L"d.xml"), Not(HasSubstr("inf")));
}

TEST_F(HostTest, NamesWhatTheModulePassesOverAndConvertsNothing) {
    const std::string document =
        Replaced(Document(R"(<Value Attribute1="0" Attribute2="1e3" Attribute3="5٥ mm" Attribute4="-5"/>)",
                          R"(
<Rule Name="幅 𠮷" Module="MFXSandCastingRulesValidator"/>
<Rule Name="Variable Draft Angle" Module="Other" />)"),
                 "Severity=\"2\"", "Severity=\"high\"");
    const std::string problems =
        R"(d.xml:2: 幅 𠮷: module "MFXSandCastingRulesValidator" has no rule of this name
d.xml:3: Variable Draft Angle: a rule of another module, "Other", which is not known here
d.xml:4: Variable Draft Angle: Rule: Severity="high" is not a whole number
d.xml:7: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute2: "1e3" is not a number and reads as 1
d.xml:7: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute3: "5٥ mm" is not a number and reads as 5
d.xml:7: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute4: "-5" is not a number and reads as 0
)";
    m_folder.Write(L"d.xml", document);
    Run({L"show", L"d.xml"}, 1, StartsWith("d.xml: 3 rules"), problems);
    Run({L"convert", L"d.xml", L"--length", L"in", L"-o", L"o.xml"}, 1, "",
        problems + "mfxhost: d.xml was not converted\n");
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"d.xml"));
}
