#include "HostTest.h"
#include "support/Utf16.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace fs = std::filesystem;
using namespace testing;

TEST_F(HostTest, NamesTheFlawOfAnUnreadableFile) {
    std::string opened, closed;
    for (int i = 0; i < 100000; ++i) opened += "<a>", closed += "</a>";
    std::string attributes;
    for (int i = 0; i < 257; ++i) attributes += " a" + std::to_string(i) + "=\"\"";
    const std::string kCases[][3] = {
        {"", " ", "empty"},
        {"just text", "1: ", "no element"},
        {"<MfxRules/>text", "1: ", "outside"},
        {m_sample.substr(0, m_sample.size() / 2), "", "XML"},
        {m_sample.substr(0, m_sample.rfind("</MfxRules>")), "", "XML"},
        {"<MfxRules>\n</Other>", "2: ", "XML"},
        {"<MfxRules/>\n<MfxRules/>", "2: ", "more than one"},
        {"<MfxRules>\n" + opened + closed + "</MfxRules>", "2: ", "too deep"},
        {"<MfxRules>\n<a" + attributes + "/></MfxRules>", "2: ", "too many attributes"},
        {"<MfxRules>\n\n<Rule Name=\"\xC3\x28\"/></MfxRules>", "3: ", "UTF-8"},
        {std::string("<MfxRules>\n<!--\0--></MfxRules>", 30), "2: ", "NUL"},
        {ToUtf16("<MfxRules/>", false, false), "1: ", "byte-order mark"},
        {"<!DOCTYPE MfxRules [<!ENTITY a \"5\">]>\n<MfxRules>&a;</MfxRules>", "1: ", "declares entities"},
        {"<!DOCTYPE MfxRules SYSTEM \"&a;\">\n<!-- &a; --><?a "
         "&a;?>\n<MfxRules>&lt;&#65;<![CDATA[&a;]]>a;&a;</"
         "MfxRules>",
         "3: column 37: ", "reference"},
        {"<MfxRules>\n<Rule Name=\"&#0;\"/></MfxRules>", "2: column 13: ", "no character"},
        {"<MfxRules>\n<Rule Name=\"&#xD800;\"/></MfxRules>", "2: ", "no character"},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<MfxRules a=\"\xE4\"/>",
         "1: ", "the encoding \"ISO-8859-1\" is not read"},
        {"\n<Rules Version=\"1\"/>", "2: ", "\"Rules\", not \"MfxRules\""},
        {"\n\n<MfxRules Version=\"2\"/>", "3: ", "Version=\"2\""},
        {"<MfxRules Unit=\"-1\"/>", "1: ", "Unit=\"-1\""},
        {"<MfxRules Unit=\"10\"/>", "1: ", "Unit=\"10\""},
        {"<MfxRules Unit=\"mm\"/>", "1: ", "Unit=\"mm\""},
        {"<MfxRules Unit=\"\"/>", "1: ", "Unit=\"\""},
        {"<MfxRules Unit=\"1.5\"/>", "1: ", "Unit=\"1.5\""},
        {"<MfxRules Unit=\"03\"/>", "1: ", "Unit=\"03\""},
        {"<MfxRules AngleUnit=\"4\"/>", "1: ", "AngleUnit=\"4\""},
    };
    for (const auto& [bytes, line, reason] : kCases) {
        SCOPED_TRACE(bytes.substr(0, 80));
        m_folder.Write(L"d.xml", bytes);
        for (const Arguments& arguments :
             {Arguments{L"show", L"d.xml"}, {L"check", L"d.xml"}, {L"convert", L"d.xml", L"--length", L"in"}})
            Run(arguments, 3, "", AllOf(StartsWith("mfxhost: d.xml:" + line), HasSubstr(reason)));
        EXPECT_EQ(m_folder.Read(L"d.xml"), bytes);
    }
    for (const std::wstring name : {L"none.xml", L"none\\d.xml", L".", L"d.xml\\e.xml"})
        for (const wchar_t* pszCommand : {L"show", L"check"})
            Run({pszCommand, name}, 3, "", StartsWith("mfxhost: " + Utf8(name) + ": can't be read: "));
}

TEST_F(HostTest, ExplainsItsUsage) {
    m_folder.Write(L"d.xml", m_sample);
    const std::pair<Arguments, const char*> kCases[] = {
        {{}, "give a command"},
        {{L"open"}, "\"open\" is not a command"},
        {{L"show"}, "FILE"},
        {{L"show", L""}, "FILE"},
        {{L"check", L""}, "FILE"},
        {{L"check", L"d.xml", L"--severity", L"1"}, "1 not in {hint,warning,error}"},
        {{L"show", L"d.xml", L"e.xml"}, "e.xml"},
        {{L"new"}, "FILE"},
        {{L"list", L"--lang", L"klingon"}, "klingon"},
        {{L"convert", L"--length", L"in"}, "FILE"},
        {{L"convert", L"d.xml"}, "--length"},
        {{L"convert", L"d.xml", L"--length"}, "--length"},
        {{L"convert", L"d.xml", L"--size", L"in"}, "--size"},
        {{L"convert", L"d.xml", L"--length", L"in", L"-o", L""}, "output"},  // does not mean "in place"
    };
    for (const auto& [arguments, reason] : kCases)
        Run(arguments, 2, "", AllOf(StartsWith("mfxhost: "), HasSubstr(reason)));
    EXPECT_EQ(m_folder.Read(L"d.xml"), m_sample);
    Run({L"--help"}, 0, AllOf(HasSubstr("list "), HasSubstr("convert "), HasSubstr("Exit codes")), "");
    Run({L"convert", L"--help"}, 0, AllOf(HasSubstr("--length"), HasSubstr("chinese-simplified")), "");
}

TEST_F(HostTest, LeavesATargetThatCannotBeWrittenWhole) {
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

TEST_F(HostTest, NamesThePartOfTheInstallationThatIsMissing) {
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

    for (const std::wstring name :
         {L"bin\\MfxKitu.dll", L"bin\\MFXSandCastingRulesu.dll",
          L"lang\\english\\MFXSandCastingRulesResu.dll", L"lang\\french\\MFXSandCastingRulesResu.dll"})
        for (const std::string damage : {"missing", "no library", "cut off"}) {
            SCOPED_TRACE(Utf8(name) + ": " + damage);
            const std::wstring file = m_folder.Path(name);
            fs::rename(file, file + L".away");
            const std::string whole = m_folder.Read(name + std::wstring(L".away"));
            // Of libraries with code most is debug information.
            const std::size_t nCutOff = name.starts_with(L"lang") ? whole.size() - 600 : whole.size() / 50;
            if (damage != "missing")
                m_folder.Write(name, damage == "cut off" ? whole.substr(0, nCutOff) : damage);
            // Without a language the program still has English.
            const bool bLanguage = name.find(L"french") != std::wstring::npos;
            Run({L"list", L"--lang", L"french"}, bLanguage ? 0 : 4,
                StartsWith(bLanguage ? "Sand Casting Rules\n" : ""), StartsWith("mfxhost: " + Utf8(file)),
                bin);
            fs::rename(file + L".away", file);
        }
}

// Numbers that no enumerator has are kept as they are.
TEST_F(HostTest, TakesAnyOperatorAndParameterType) {
    const std::string row = R"(<Value Attribute1="0" Attribute2="9" Attribute3="3" Attribute4="2"/>)";
    for (const std::string number : {"16", "-2147483648", "2147483647", "99999999999999999999"}) {
        m_folder.Write(L"d.xml", Replaced(Document(row), "<Operator>3", "<Operator>" + number));
        Run({L"convert", L"d.xml", L"--length", L"cm"}, 0, HasSubstr("1 rule converted"), "");
        m_folder.Write(L"d.xml", Replaced(Document(row), "<ParameterType>24", "<ParameterType>" + number));
        Run({L"show", L"d.xml"}, 1, _, HasSubstr("ParameterType"));
    }
}

// Time in proportion to the size: were it the square of it, this would take minutes. MFX_MEGABYTES=100 for
// more.
TEST_F(HostTest, TakesLargeDocumentsInTime) {
    const std::string row =
        "<Value Attribute1=\"0\" Attribute2=\"25.4\" Attribute3=\"3\" Attribute4=\"2\"/>\n";
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    const std::size_t nMaterial = all.find("    <Constraint"),
                      nEnd = all.find("    <Constraint", nMaterial + 1);
    const char* pszMegabytes = std::getenv("MFX_MEGABYTES");
    const std::size_t nBytes = (pszMegabytes ? std::strtoul(pszMegabytes, nullptr, 10) : 10) * 1000000;
    std::string rows, materials;
    while (rows.size() < nBytes / 2) rows += row;
    while (materials.size() < nBytes / 2) materials.append(all, nMaterial, nEnd - nMaterial);
    m_folder.Write(L"d.xml", Replaced(std::string(all).insert(nMaterial, materials), "<Value Attribute1",
                                      rows + "<Value Attribute1"));
    const std::pair<Arguments, int> kCases[] = {{{L"show", L"d.xml"}, 0},
                                                {{L"check", L"d.xml"}, 1},
                                                {{L"diff", L"d.xml", L"d.xml"}, 0},
                                                {{L"convert", L"d.xml", L"--length", L"in"}, 0}};
    for (const auto& [arguments, nExitCode] : kCases) {
        const auto run = RunProcess(ProgramFolder() + L"\\mfxhost.exe", arguments, m_folder.Path(), 90000);
        EXPECT_EQ(run.nExitCode, nExitCode)
            << Utf8(arguments[0]) << (run.bTimedOut ? " takes too long" : run.err.substr(0, 500));
    }
    std::string nested;
    while (nested.size() < nBytes / 4) nested += "<Rule><Rule/></Rule>\n";
    m_folder.Write(L"d.xml", "<MfxRules>" + nested + "</MfxRules>");
    EXPECT_EQ(RunProcess(ProgramFolder() + L"\\mfxhost.exe", {L"check", L"d.xml"}, m_folder.Path(), 90000)
                  .nExitCode,
              1);
}

// A file that is written while it is read is read whole, or not at all.
TEST_F(HostTest, ReadsNoHalfWrittenFile) {
    const std::string documents[] = {ManyRules(300), Replaced(ManyRules(200), "Unit=\"1\"", "Unit=\"3\"")};
    std::string shown[2];
    for (int i = 0; i < 2; ++i) {
        m_folder.Write(L"d.xml", documents[i]);
        shown[i] = Run({L"show", L"d.xml"}).out;
    }
    const std::jthread writer([&](const std::stop_token& stop) {
        for (int i = 0; !stop.stop_requested(); ++i) {
            std::FILE* pFile = _wfopen(m_folder.Path(L"d.xml").c_str(), L"r+b");
            if (!pFile) continue;  // it is being read
            for (const char ch : documents[i % 2]) std::putc(ch, pFile);
            std::fflush(pFile);
            _chsize(_fileno(pFile), static_cast<long>(documents[i % 2].size()));
            std::fclose(pFile);
            Sleep(static_cast<DWORD>(i % 20));
        }
    });
    int nRead = 0;
    for (int i = 0; i < 40; ++i) {
        const ProcessResult run = Run({L"show", L"d.xml"});
        if (run.nExitCode == 0) ++nRead;
        EXPECT_THAT(run.out, run.nExitCode == 0 ? Matcher<const std::string&>(AnyOfArray(shown)) : "");
        EXPECT_THAT(run.err, run.nExitCode == 0 ? Matcher<const std::string&>("")
                                                : HasSubstr("d.xml: can't be read: "));
    }
    EXPECT_GT(nRead, 0);
}

TEST_F(HostTest, LeavesTheFileWholeOnAFullDisk) {
    if (!fs::exists(MFX_SMALL_DISK "mounted")) GTEST_SKIP() << "no small file system could be mounted";
    const fs::path path = MFX_SMALL_DISK "d.xml";
    const std::string document = ManyRules(40);
    std::ofstream(path, std::ios::binary) << document;
    ASSERT_EQ(fs::file_size(path), document.size());
    Run({L"convert", path.wstring(), L"--length", L"in"}, 4, "",
        AllOf(HasSubstr("d.xml: can't be written: "), HasSubstr("(error 112)")));
    EXPECT_EQ(m_folder.Read(path.wstring()), document);
    EXPECT_EQ(std::distance(fs::directory_iterator(MFX_SMALL_DISK), fs::directory_iterator()), 2);
}
