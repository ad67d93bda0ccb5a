#include "HostTest.h"
#include "support/Utf16.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using namespace testing;

namespace {

std::string Nested(std::size_t nDepth, const std::string& innermost) {
    return "<MfxRules>" + Repeated("<a>", nDepth - 1) + innermost + Repeated("</a>", nDepth - 1) +
           "</MfxRules>";
}

struct FailuresTest : HostTest {
    void ExpectUnreadable(const std::string& bytes, const std::string& place,
                          const std::string& reason) const {
        SCOPED_TRACE(bytes.substr(0, 80));
        m_folder.Write(L"d.xml", bytes);
        for (const Arguments& arguments :
             {Arguments{L"show", L"d.xml"}, {L"check", L"d.xml"}, {L"convert", L"d.xml", L"--length", L"in"}})
            Run(arguments, 3, "", AllOf(StartsWith("mfxhost: d.xml:" + place), HasSubstr(reason)));
        EXPECT_EQ(m_folder.Read(L"d.xml"), bytes);
    }
};

}  // namespace

TEST_F(FailuresTest, NamesTheFlawOfATextThatIsNoXml) {
    ExpectUnreadable("", " ", "empty");
    ExpectUnreadable("just text", "1: ", "no element");
    ExpectUnreadable("<MfxRules/>text", "1: column 12: ", "outside");
    ExpectUnreadable(m_sample.substr(0, m_sample.rfind("</MfxRules>")), "", "XML");
    ExpectUnreadable("<MfxRules>\r\n  <a>\r\n</MfxRules>", "3: column 3: ", "XML");
    ExpectUnreadable("<MfxRules/>\n<!-- -->\n  <MfxRules/>", "3: column 4: ", "more than one");
    ExpectUnreadable("\xEF\xBB\xBF<MfxRules>\n\n\xC3\x28</MfxRules>", "3: ", "UTF-8");
    ExpectUnreadable(std::string("<MfxRules>\n<!--\0--></MfxRules>", 30), "2: column 5: ", "NUL");
    ExpectUnreadable(ToUtf16("<MfxRules/>", false, false), "1: ", "byte-order mark");
    ExpectUnreadable(ToUtf16("<MfxRules/>", false, true) + "x", "1: ", "middle of a UTF-16 character");
    ExpectUnreadable("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<MfxRules a=\"\xE4\"/>",
                     "1: ", "the encoding \"ISO-8859-1\" is not read");
    ExpectUnreadable("<!DOCTYPE a [<!ENTITY a \"5\">]>\n<MfxRules>&a;</MfxRules>",
                     "1: ", "declares entities");
    ExpectUnreadable(
        "<!DOCTYPE a SYSTEM \"&a;\">\n<!-- &a; --><?a "
        "&a;?>\n<MfxRules>&lt;&#65;<![CDATA[&a;]]>a;&a;</MfxRules>",
        "3: column 37: ", "reference");
    ExpectUnreadable("<MfxRules>\n<Rule Name=\"&#0;\"/></MfxRules>", "2: column 13: ", "no character");
    ExpectUnreadable("<MfxRules>\n<Rule Name=\"&#xD800;\"/></MfxRules>", "2: ", "no character");
}

TEST_F(FailuresTest, NamesTheFlawOfWhatIsNoRuleDocument) {
    ExpectUnreadable(Nested(100000, ""), "1: ", "too deep");
    ExpectUnreadable(Nested(256, "\n<b/>"), "2: ", "too deep");
    m_folder.Write(L"deep.xml", Nested(256, "text<!-- comment -->"));
    Run({L"show", L"deep.xml"}, 0, _, "");
    ExpectUnreadable("<MfxRules>\n<a" + Repeated(" a=\"\"", 257) + "/></MfxRules>",
                     "2: ", "too many attributes");
    ExpectUnreadable("\n<Rules Version=\"1\"/>", "2: ", "\"Rules\", not \"MfxRules\"");
    for (const std::string wrong : {"Version=\"2\"", "AngleUnit=\"4\"", "Unit=\"-1\"", "Unit=\"10\"",
                                    "Unit=\"mm\"", "Unit=\"\"", "Unit=\"1.5\"", "Unit=\"03\""})
        ExpectUnreadable("\n\n<MfxRules " + wrong + "/>", "3: ", wrong);
    const std::pair<const wchar_t*, const wchar_t*> kUnreadable[] = {{L"show", L"none.xml"},
                                                                     {L"show", L"none\\d.xml"},
                                                                     {L"show", L"."},
                                                                     {L"check", L"none.xml"},
                                                                     {L"check", L"deep.xml\\e.xml"}};
    for (const auto& [command, name] : kUnreadable)
        Run({command, name}, 3, "", StartsWith("mfxhost: " + Utf8(name) + ": can't be read: "));
}

TEST_F(FailuresTest, ExplainsItsUsage) {
    m_folder.Write(L"d.xml", m_sample);
    const std::pair<Arguments, const char*> kCases[] = {
        {{}, "give a command"},
        {{L"open"}, "\"open\" is not a command"},
        {{L"--open"}, "\"--open\" is not known"},
        {{L"materials", L"open"}, "\"open\" is not known"},
        {{L"show"}, "FILE"},
        {{L"check", L""}, "FILE"},
        {{L"check", L"d.xml", L"--severity", L"1"}, "1 not in {hint,warning,error}"},
        {{L"show", L"d.xml", L"e.xml"}, "e.xml"},
        {{L"list", L"--lang", L"klingon"}, "klingon"},
        {{L"convert", L"d.xml"}, "--length"},
        {{L"convert", L"d.xml", L"--length", L"in", L"-o", L""}, "output"},  // does not mean "in place"
    };
    for (const auto& [arguments, reason] : kCases)
        Run(arguments, 2, "", AllOf(StartsWith("mfxhost: "), HasSubstr(reason)));
    EXPECT_EQ(m_folder.Read(L"d.xml"), m_sample);
    Run({L"help", L"open"}, 2, "", HasSubstr("\"open\" is not a command"));
    Run({L"show", L"-", L"-"}, 2, "", _);
    Run({L"check", L"-", L"-"}, 2, _, HasSubstr("only once"));
}

TEST_F(FailuresTest, TellsTheUsageOfEachCommand) {
    Run({L"help"}, 0, AllOf(HasSubstr("convert "), HasSubstr("Exit codes"), HasSubstr("chinese-simp")), "");
    const Arguments topics[] = {{},
                                {L"list"},
                                {L"new"},
                                {L"show"},
                                {L"check"},
                                {L"diff"},
                                {L"set"},
                                {L"import"},
                                {L"sheet"},
                                {L"convert"},
                                {L"configure"},
                                {L"materials"},
                                {L"materials", L"import"}};
    for (Arguments topic : topics) {
        topic.insert(topic.begin(), L"help");
        const std::string help = Run(topic).out;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
        const std::string example = topic.size() > 1 ? Utf8(topic[1]) + " " : "";
        EXPECT_THAT(help, HasSubstr("mfxhost " + example));
    }
    EXPECT_EQ(Run({L"materials", L"import", L"--help"}).out, Run({L"help", L"materials", L"import"}).out);
}

TEST_F(FailuresTest, LeavesATargetThatCannotBeWrittenWhole) {
    m_folder.Write(L"d.xml", m_sample);
    SetFileAttributesW(m_folder.Write(L"read-only.xml", "mine").c_str(), FILE_ATTRIBUTE_READONLY);
    const HANDLE hOpen = CreateFileW(m_folder.Write(L"open.xml", "mine").c_str(), GENERIC_READ,
                                     FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    fs::create_directory(m_folder.Path(L"folder"));
    const auto names = m_folder.Names();
    for (const std::wstring target : {L"read-only.xml", L"open.xml", L"folder", L"none\\d.xml"}) {
        // The reason is more than a number.
        const auto unwritten = HasSubstr(Utf8(target) + ": can't be written: ");
        Run({L"convert", L"d.xml", L"--length", L"in", L"-o", target}, 4, "",
            AllOf(unwritten, Not(HasSubstr(":  ("))));
        Run({L"new", target, L"--force"}, 4, "", unwritten);
        EXPECT_EQ(m_folder.Names(), names);
    }
    CloseHandle(hOpen);
    EXPECT_EQ(m_folder.Read(L"read-only.xml") + m_folder.Read(L"open.xml"), "minemine");
}

TEST_F(FailuresTest, NamesThePartOfTheInstallationThatIsMissing) {
    const std::wstring bin = m_folder.Path(L"bin");
    fs::create_directory(bin);
    for (const auto& entry : fs::directory_iterator(ProgramFolder()))
        if (entry.path().extension() == L".dll" || entry.path().filename() == L"mfxhost.exe")
            fs::copy(entry.path(), fs::path(bin) / entry.path().filename());
    fs::copy(ProgramFolder() + L"\\..\\lang", m_folder.Path(L"lang"), fs::copy_options::recursive);
    Run({L"list", L"--lang", L"french"}, 0, StartsWith("Règles"), "", bin);
    fs::remove(bin + L"\\MFXCLRMangedHelper.dll");
    m_folder.Write(L"b.xlsx", "");
    Run({L"sheet", L"b.xlsx"}, 4, "", HasSubstr("b.xlsx: the library that reads .xlsx files is missing"),
        bin);
    fs::remove(bin + L"\\MFXDatabaseu.dll");
    Run({L"materials", L"list"}, 4, "", HasSubstr("MFXDatabaseu.dll can't be loaded, install"), bin);

    for (const std::wstring name :
         {L"bin\\MfxKitu.dll", L"bin\\MFXSandCastingRulesu.dll",
          L"lang\\english\\MFXSandCastingRulesResu.dll", L"lang\\french\\MFXSandCastingRulesResu.dll"}) {
        SCOPED_TRACE(Utf8(name));
        const std::string whole = m_folder.Read(name);
        // Without a language the program still has English.
        const bool bLanguage = name.find(L"french") != std::wstring::npos;
        const auto expectNamed = [&] {
            Run({L"list", L"--lang", L"french"}, bLanguage ? 0 : 4,
                StartsWith(bLanguage ? "Sand Casting Rules\n" : ""),
                StartsWith("mfxhost: " + Utf8(m_folder.Path(name))), bin);
        };
        fs::remove(m_folder.Path(name));
        expectNamed();
        // Of libraries with code most is debug information.
        const std::size_t nCutOff = name.starts_with(L"lang") ? whole.size() - 600 : whole.size() / 50;
        for (const std::string& damaged : {std::string("no library"), whole.substr(0, nCutOff)}) {
            m_folder.Write(name, damaged);
            expectNamed();
        }
        m_folder.Write(name, whole);
    }
}

// Time in proportion to the size: were it the square of it, this would take minutes. MFX_MEGABYTES=100 for
// more.
TEST_F(FailuresTest, TakesLargeDocumentsInTime) {
    const std::string row = R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)";
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    const std::size_t nMaterial = all.find("    <Constraint"),
                      nEnd = all.find("    <Constraint", nMaterial + 1);
    const std::string material = all.substr(nMaterial, nEnd - nMaterial), rules = "<Rule><Rule/></Rule>\n";
    const char* pszMegabytes = std::getenv("MFX_MEGABYTES");
    const std::size_t nBytes = (pszMegabytes ? std::strtoul(pszMegabytes, nullptr, 10) : 10) * 500000;
    const auto fill = [&](const std::string& part) { return Repeated(part, nBytes / part.size()); };
    m_folder.Write(L"d.xml", Replaced(Replaced(all, "<Value Attribute1", fill(row) + "<Value Attribute1"),
                                      material, fill(material)));
    m_folder.Write(L"nested.xml", "<MfxRules>" + fill(rules) + "</MfxRules>");
    const std::pair<Arguments, int> kCases[] = {{{L"show", L"d.xml"}, 0},
                                                {{L"check", L"d.xml"}, 1},
                                                {{L"check", L"nested.xml"}, 1},
                                                {{L"diff", L"d.xml", L"d.xml"}, 0},
                                                {{L"convert", L"d.xml", L"--length", L"in"}, 0}};
    for (const auto& [arguments, nExitCode] : kCases) {
        const auto run = RunProcess(ProgramFolder() + L"\\mfxhost.exe", arguments, m_folder.Path(), 90000);
        EXPECT_EQ(run.nExitCode, nExitCode)
            << Utf8(arguments[0]) << (run.bTimedOut ? " takes too long" : run.err.substr(0, 500));
    }
}

TEST_F(FailuresTest, ReadsNoFileThatIsBeingWritten) {
    const HANDLE hWriter =
        CreateFileW(m_folder.Write(L"d.xml", m_sample).c_str(), GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    Run({L"show", L"d.xml"}, 3, "", HasSubstr("d.xml: can't be read: "));
    CloseHandle(hWriter);
    Run({L"show", L"d.xml"}, 0, _, "");
}

TEST_F(FailuresTest, LeavesTheFileWholeOnAFullDisk) {
    if (!fs::exists(MFX_SMALL_DISK "mounted")) GTEST_SKIP() << "no small file system could be mounted";
    const fs::path path = MFX_SMALL_DISK "d.xml";
    const std::string document = ManyRules(40);
    std::ofstream(path, std::ios::binary) << document;
    ASSERT_EQ(fs::file_size(path), document.size());
    Run({L"convert", path.wstring(), L"--length", L"in"}, 4, "",
        AllOf(HasSubstr("d.xml: can't be written: "), HasSubstr("(error 112)")));
    EXPECT_EQ(m_folder.Read(path.wstring()), document);
    EXPECT_EQ(std::distance(fs::directory_iterator(MFX_SMALL_DISK), fs::directory_iterator()), 3);
    // A link stays one, and the file that it leads to is replaced.
    std::ofstream(path, std::ios::binary) << m_sample;
    Run({L"convert", MFX_SMALL_DISK L"link.xml", L"--length", L"in"}, 0, _, _);
    EXPECT_THAT(m_folder.Read(path.wstring()), HasSubstr("Unit=\"3\""));
}

TEST_F(FailuresTest, MakesNoWorkbookThatIsCutOff) {
    if (!fs::exists(MFX_SMALL_DISK "mounted")) GTEST_SKIP() << "no small file system could be mounted";
    std::string materials = "material,active,minimum,maximum\n";
    for (int i = 0; i < 1000; ++i) materials += "Steel " + std::to_string(i) + ",yes,1,2\n";
    m_folder.Write(L"t.csv", materials);
    m_folder.Write(L"t.xlsx", "old");
    Run({L"new", L"d.xml"}, 0, _, "");
    Run({L"import", L"d.xml", L"t.csv", L"--rule", L"19010"}, 0, _, "");
    const std::wstring disk = Wide(MFX_SMALL_DISK), foreign = m_folder.Path(L"仮の𠮷");
    fs::create_directory(foreign);
    const auto setTemporaryFolder = [](const std::wstring& folder) {
        for (const wchar_t* variable : {L"TMP", L"TEMP"}) SetEnvironmentVariableW(variable, folder.c_str());
    };
    const auto expectExport = [&](const std::wstring& temporaryFolder, int exitCode, const char* text) {
        setTemporaryFolder(temporaryFolder);
        const auto run = RunProcess(
            ProgramFolder() + L"\\mfxhost.exe",
            {L"export", m_folder.Path(L"d.xml"), L"--rule", L"19010", L"-o", m_folder.Path(L"t.xlsx")}, disk);
        setTemporaryFolder(fs::path(m_folder.Path()).parent_path());
        EXPECT_EQ(run.nExitCode, exitCode);
        EXPECT_THAT(run.out + run.err, AllOf(HasSubstr(text), Not(HasSubstr("ERROR"))));
    };
    expectExport(disk, 4, "(error 112)");
    EXPECT_EQ(m_folder.Read(L"t.xlsx"), "old");
    // The parts are in the temporary folder and not in the current one, where there is no room.
    expectExport(foreign, 0, "1000 lines");
    Run({L"sheet", L"t.xlsx"}, 0, HasSubstr("1001 rows"), "");
}
