#include "HostTest.h"

#include <sstream>

using namespace testing;

TEST_F(HostTest, ConvertsInPlaceWithoutTheOpenUpperBound) {
    m_folder.Write(L"i.xml", m_inches);
    Run({L"convert", L"i.xml", L"--length", L"mm", L"--lang", L"english"}, 0,
        "i.xml: 1 rule converted from inches and degrees to millimetres and degrees\n", "");
    std::string expected = Replaced(m_inches, R"(Unit="3")", R"(Unit="1")");
    expected = Replaced(expected, R"("1.0" Attribute3)", R"("25.4" Attribute3)");
    expected = Replaced(expected, R"("1.0" Attribute2="4.0")", R"("25.4" Attribute2="101.6")");
    expected = Replaced(expected, R"("4.0" Attribute2)", R"("101.6" Attribute2)");
    EXPECT_EQ(m_folder.Read(L"i.xml"), expected);
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"i.xml"));
}

TEST_F(HostTest, KnowsUnitsAsPeopleTypeThem) {
    const std::pair<const char*, std::vector<const char*>> kCases[] = {
        {"--length",
         {"", "mm MM Millimeters millimetre", "cm Centimetres", "in Inch inches \"", "M meter metres",
          "ft Foot feet '", "um \u00b5m \u03bcm microns", "thou mil mils", "dm", "yd yards"}},
        {"--angle",
         {"deg DEG Degrees \u00b0", "rad RAD radians", "gon grad gradians", "arcmin arcminutes \u2032"}},
    };
    const std::string document = R"(<MfxRules Unit="2" AngleUnit="2"/>)";
    for (const auto& [option, namesOfCodes] : kCases)
        for (std::size_t nCode = 0; nCode < namesOfCodes.size(); ++nCode) {
            std::istringstream names(namesOfCodes[nCode]);
            for (std::string name; names >> name;) {
                m_folder.Write(L"d.xml", document);
                Run({L"convert", L"d.xml", Wide(option), Wide(name)}, 0,
                    AnyOf(HasSubstr("0 rules converted"), HasSubstr("already")), "");
                const std::string code = "Unit=\"" + std::to_string(nCode) + "\"";
                EXPECT_THAT(m_folder.Read(L"d.xml"),
                            HasSubstr(option[2] == 'l' ? "<MfxRules " + code : R"(="2" Angle)" + code));
            }
        }
    m_folder.Write(L"d.xml", document);
    for (const std::wstring name :
         {L"furlong", L"km", L"mmm", L"m m", L"deg", L"3", L"\\\"a b\\", L"米", L""})
        Run({L"convert", L"d.xml", L"--length", name}, 2, "",
            AllOf(HasSubstr("--length"), HasSubstr('"' + Utf8(name) + '"'), HasSubstr("mm, cm, in")));
    EXPECT_EQ(m_folder.Read(L"d.xml"), document);
}

// The record is written anew: what the rule did not take in has to be reported, or kept, as all around it.
TEST_F(HostTest, LosesNothingSilently) {
    const struct {
        std::string part, by;
        const char* kept;  // null when only a report will do
    } kCases[] = {
        {"<MfxRules", "<!-- first -->\n<MfxRules by=\"M &amp; S\"",
         "<!-- first -->\n<MfxRules by=\"M &amp; S\""},
        {"<Rule", "<x:e xmlns:x=\"u\">Ä &lt; b<![CDATA[<r>]]></x:e>\n<?t d?><Rule",
         "<x:e xmlns:x=\"u\">Ä &lt; b<![CDATA[<r>]]></x:e>\n  <?t d?>"},
        {"<Remarks>r", "<Remarks>r; 𠮷", "<Remarks>r; 𠮷</Remarks>"},
        {"Severity", "owner=\"me\" Severity", "owner=\"me\""},
        {"<Par", "<!-- why --><Par", "<!-- why -->"},
        {"<Par", "<Parameter Type=\"4711\"><Value>25.4</Value></Parameter><Par", "4711"},
        {"<Par", "<Constraint Type=\"1\" Value=\"Iron\" Status=\"1\"/><Par", "Iron"},
        {"<Remarks>", "<Note>n</Note><Remarks>", "<Note>n</Note>"},
        {"</Parameter>", "</Parameter><Parameter Type=\"29183\"><Value Attribute1=\"7\"/></Parameter>",
         nullptr},
        {"<Remarks>r", "<Remarks>r&#1;", "<Remarks>r&#01;</Remarks>"},
        {" Attribute3", " Attribute2=\"7\" Attribute3", nullptr},
        {"</Rule>", "<Rule Name=\"n\" /></Rule>", nullptr},
        {"\"2\"/>", "\"2\">25.4</Value>", nullptr},
        {" Attribute3", " Attribute9=\"7\" Attribute3", nullptr},
        {"<Remarks>", "<ResultCriteria><PercentDeviation>p</PercentDeviation></ResultCriteria><Remarks>",
         nullptr},
        {"<Rule N", "stray<Rule N", "stray"},
        {" Attribute4=\"2\"", "", nullptr},  // too short: it would keep the old units
        {"<Operator>3", "<Operator>is", nullptr},
        {"<Operator>3", "<Operator>1", nullptr},  // values in pairs or threes; others are not written
        {"25.4", std::string(400, '9'), nullptr},
        {"<ParameterType>24", "<ParameterType>", nullptr},
    };
    for (const auto& [part, by, kept] : kCases) {
        SCOPED_TRACE(part + " -> " + by);
        const std::string document = Replaced(
            Document(R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)"), part, by);
        m_folder.Write(L"d.xml", document);
        const ProcessResult run = Run({L"convert", L"d.xml", L"--length", L"in"});
        const std::string after = m_folder.Read(L"d.xml");
        EXPECT_EQ(after.find("=\"-1\""), std::string::npos) << "no numbers that were not there";
        if (run.nExitCode == 0 && kept && after.find(kept) != std::string::npos) continue;
        EXPECT_EQ(run.nExitCode, 1);
        EXPECT_THAT(run.err, StartsWith("d.xml:"));
        EXPECT_TRUE(after == document);
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
    const std::string rule = ": Variable Draft Angle: parameter 29183, ", table = "d.xml:5" + rule;
    const std::string row = R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)";
    const std::string criteria =
        "<ResultCriteria><AbsoluteDeviation><Info><Value>0.00000025</Value><Value>0.00000125</Value></Info>"
        "</AbsoluteDeviation></ResultCriteria>";
    std::string rows;
    for (int i = 0; i < 12; ++i) rows += Replaced(row, "25.4", i == 11 ? "0.0004" : "101") + "\n";
    const struct {
        std::string rows;
        std::wstring option, unit;
        std::string err;
    } kCases[] = {
        {row, L"--length", L"in", ""},
        {Replaced(row, "25.4", "101"), L"--length", L"in",
         table + "row 1, to: 101 mm became 3.976378 in instead of 3.976377953 in\n"},
        {Replaced(row, "25.4", "0.0254"), L"--length", L"m",
         table + "row 1, to: 0.0254 mm became 0.000025 m instead of 0.0000254 m\n"},
        {Replaced(row, "25.4", "0.0004"), L"--length", L"m",
         table + "row 1, to: 0.0004 mm became 0 m instead of 0.0000004 m\n"},
        {Replaced(row, "25.4", "1000000000000"), L"--length", L"m",
         table + "row 1, to: 1000000000000 mm became no limit instead of 1000000000 m\n"},
        {Replaced(row, "/>", " Attribute5=\"\"/>"), L"--angle", L"arcmin",
         table + "row 1, angle 3: an empty cell became 0 arcmin\n"},
        {row + criteria, L"--length", L"in",
         "d.xml:3" + rule +
             "row 1, Draft angles by size, absolute deviation, info: 0.00000025 became 0 instead of "
             "0.00000025\nd.xml:3" +
             rule +
             "row 1, Draft angles by size, absolute deviation, info, second: 0.00000125 became 0.000001 "
             "instead of 0.00000125\n"},
    };
    for (const auto& [inTable, option, unit, err] : kCases) {
        SCOPED_TRACE(inTable);
        m_folder.Write(L"d.xml", Document(inTable));
        Run({L"convert", L"d.xml", option, unit}, 0, HasSubstr("1 rule converted"), err);
    }
    m_folder.Write(L"d.xml", Document(rows));
    Run({L"convert", L"d.xml", L"--length", L"in"}, 0, HasSubstr("1 rule converted"),
        AllOf(
            StartsWith(
                "d.xml:16: Variable Draft Angle: parameter 29183, row 12, to: 0.0004 mm became 0.000016 in"),
            EndsWith("row 9, to: 101 mm became 3.976378 in instead of 3.976377953 in\n"
                     "and 2 more, with smaller losses\n")));
    // Losses that are equal stand in the document's order.
    m_folder.Write(L"d.xml", Document(rows));
    const ProcessResult run = Run({L"convert", L"d.xml", L"--length", L"in", L"--losses"});
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 12);
    m_folder.Write(L"d.xml", Document(Replaced(Replaced(row, "\"3\"", "\"1.5\""), "\"2\"", "\"3\"") +
                                      Replaced(Replaced(row, "\"3\"", "\"0.75\""), "\"2\"", "\"6\"")));
    Run({L"convert", L"d.xml", L"--angle", L"rad"}, 0, _,
        ContainsRegex(
            "1, angle 1: 1.5 .*\n.*1, angle 2: 3 .*\n.*2, angle 1: 0.75 .*\n.*2, angle 2: 6 .*\n$"));
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
        Replaced(Document(R"(<Value Attribute1="0" Attribute2="1e3" Attribute3="3" Attribute4="1,5"/>
<Value Attribute1="." Attribute2="1.2.3" Attribute3="" Attribute4="x&lt;y"/>)",
                          R"(
<Rule Name="幅 𠮷" Module="MFXSandCastingRulesValidator"/>
<Rule Name="Variable Draft Angle" Module="Other" />)"),
                 "Severity=\"2\"", "Severity=\"high\"");
    const std::string problems =
        R"(d.xml:2: 幅 𠮷: a rule of module "MFXSandCastingRulesValidator" that is not known here
d.xml:3: Variable Draft Angle: a rule of module "Other" that is not known here
d.xml:4: Variable Draft Angle: Rule: Severity="high" is not a whole number
d.xml:7: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute2: "1e3" is not a number and reads as 1
d.xml:7: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute4: "1,5" is not a number and reads as 1
d.xml:8: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute1: "." is not a number and reads as 0
d.xml:8: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute2: "1.2.3" is not a number and reads as 1.2
d.xml:8: Variable Draft Angle: parameter 29183 (Draft angles by size), Attribute4: "x<y" is not a number and reads as 0
)";
    m_folder.Write(L"d.xml", document);
    Run({L"show", L"d.xml"}, 1, AllOf(StartsWith("d.xml: 3 rules"), HasSubstr("1.2.3")), problems);
    for (const std::wstring output : {L"d.xml", L"o.xml"})
        Run({L"convert", L"d.xml", L"--length", L"in", L"-o", output}, 1, "",
            problems + "mfxhost: d.xml was not converted\n");
    EXPECT_EQ(m_folder.Read(L"d.xml"), document);
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"d.xml"));
}
