#include "HostTest.h"

#include <filesystem>
#include <map>
#include <numbers>
#include <regex>
#include <set>

using namespace testing;

struct SamplesTest : HostTest {
    SamplesTest() {
        for (const auto& entry : std::filesystem::directory_iterator(Wide(MFX_SAMPLES)))
            if (entry.path().extension() == ".xml")
                samples[entry.path().filename().string()] = m_folder.Read(entry.path().wstring());
    }

    // Every value and table cell as parameter id, column of the table, and text.
    using Numbers = std::vector<std::pair<std::string, std::string>>;
    static Numbers NumbersOf(const std::string& xml) {
        static const std::regex kNumber(
            "<Parameter[^>]* Type=\"(\\d+)|<Value>([^<]*)<|Attribute(\\d)=\"([^\"]*)");
        Numbers numbers;
        std::string parameter;
        for (std::sregex_iterator it(xml.begin(), xml.end(), kNumber), end; it != end; ++it)
            if ((*it)[1].matched)
                parameter = (*it)[1];
            else
                numbers.emplace_back(parameter + (*it)[3].str(), (*it)[2].str() + (*it)[4].str());
        return numbers;
    }

    // How many values a conversion says it did not keep: a line each, and how many more there are.
    static std::size_t CountReported(const std::string& err) {
        const std::size_t nMore = err.rfind("\nand ") + 1;
        const auto nLines = static_cast<std::size_t>(std::count(err.begin(), err.end(), '\n'));
        return nMore == 0 ? nLines : nLines - 1 + std::stoul(err.substr(nMore + 4));
    }

    std::map<std::string, std::string> samples;
    // What can't be converted without loss, and where it says so.
    const std::map<std::string, std::string> refused = {{"other-module.xml", ":22: "},
                                                        {"legacy-three-numbers.xml", ":5: "}};
};

TEST_F(SamplesTest, AreShown) {
    const std::map<std::string, const char*> expected = {
        {"legacy-material-table.xml",
         "by material\n.*\n.*\n.* yes +4 mm\n.* yes +12 mm\n.*\n"
         "  Aluminium +yes +3.18 +4.76\n  Steel +yes +4.76 +6.35\n  Gray"},
        {"legacy-switched-limits.xml", "ness: 0.25 in  \n.*\n.*\n.* yes +0.25 in\n.* no +0.75 in\n"},
        {"legacy-material-table-off.xml",
         "Minimum wall thickness: 4.0 mm .*\n.*\n.*\n.*\n.*\n.*\n  Aluminium +no "},
        {"size-and-weight-metres.xml",
         "lb\n.* from .m. .* from .lb. .*\n.*\n.*\n  Copper .* yes +- +- +0.1 +2 "},
        {"other-module.xml", ": 3 rules .*\n\nWall Thickness Variation .*\n.* at most 30.0\n"},
    };
    for (const auto& [name, text] : samples) {
        m_folder.Write(Wide(name), text);
        const bool bRefused = refused.contains(name);
        Run({L"show", Wide(name), L"--lang", L"english"}, bRefused,
            ContainsRegex(expected.contains(name) ? expected.at(name) : "^" + name),
            HasSubstr(bRefused ? refused.at(name) : ""));
        if (bRefused)
            Run({L"convert", Wide(name), L"--length", L"in"}, 1, "", HasSubstr("was not converted"));
        EXPECT_EQ(m_folder.Read(Wide(name)), text);
    }
    EXPECT_GE(samples.size(), 8u);
}

// Numbers keep their value; the texts of the draft angle table have six decimals.
TEST_F(SamplesTest, AreConvertedThereAndBack) {
    const std::regex isLength("10067|10068|29118|29119|29120|29183[12]"), isAngle("29183[345]");
    std::map<char, std::pair<std::wstring, double>> units = {
        {'1', {L"mm", 1}}, {'3', {L"in", 25.4}}, {'4', {L"m", 1e3}}};
    for (const auto& [name, place] : refused) samples.erase(name);
    for (const auto& [name, text] : samples) {
        const auto& [unit, millimetres] = units.at(text[text.find(" Unit=\"") + 7]);
        m_folder.Write(L"d.xml", text);
        std::size_t nReported = 0, nLost = 0;
        const auto convert = [&](const std::wstring& to) {
            const ProcessResult run = Run({L"convert", L"d.xml", L"--length", to, L"--angle",
                                           to == L"yd" ? L"rad" : L"deg", L"-o", L"d.xml"});
            EXPECT_THAT(run.out, HasSubstr(" converted from "));
            if (to == L"yd") nReported = CountReported(run.err);
            return NumbersOf(m_folder.Read(L"d.xml"));
        };
        // In their own units older documents only take today's form.
        const Numbers before = convert(unit), there = convert(L"yd"), back = convert(unit);
        EXPECT_TRUE(name.find("legacy") == 0 || before == NumbersOf(text));
        ASSERT_TRUE(!before.empty() && there.size() == before.size() && back.size() == before.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            const auto& [key, number] = before[i];
            SCOPED_TRACE(name + " " + key + " " + number);
            const bool bAngle = std::regex_match(key, isAngle);
            if (number[0] == '-' || number == "1000000000.0" ||
                !(bAngle || std::regex_match(key, isLength))) {
                EXPECT_TRUE(there[i] == before[i] && back[i] == before[i]) << there[i].second;
                continue;
            }
            const double value = number.empty() ? 0 : std::stod(number),
                         factor = bAngle ? std::numbers::pi / 180 : millimetres / 914.4,
                         limit = key.size() > 5 ? 0.501e-6 : 0;
            const double converted = std::stod(there[i].second);
            EXPECT_NEAR(converted, value * factor, limit + 1e-9 * value * factor);
            nLost += number.empty() || std::abs(converted - value * factor) > 1e-9 * value * factor;
            EXPECT_NEAR(std::stod(back[i].second), value, limit * (1 + 1 / factor) + 1e-9 * value);
        }
        EXPECT_EQ(nReported, nLost) << name;
    }
}

TEST_F(SamplesTest, WrittenInOneLanguageAreShownInAnyOther) {
    const wchar_t* const kLanguages[] = {L"english", L"japanese", L"korean", L"french",
                                         L"chinese-simplified"};
    std::set<std::string> shown;
    for (const wchar_t* pszWriter : kLanguages) {
        m_folder.Write(L"d.xml", samples.at("all-rules.xml"));
        Run({L"convert", L"d.xml", L"--length", L"mm", L"--lang", pszWriter, L"-o", L"d.xml"}, 0, _, "");
        for (const wchar_t* pszReader : kLanguages)
            shown.insert(Run({L"show", L"d.xml", L"--lang", pszReader}).out);
    }
    EXPECT_EQ(shown.size(), std::size(kLanguages));
}
