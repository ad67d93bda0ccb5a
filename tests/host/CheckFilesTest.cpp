#include "HostTest.h"

#include <filesystem>

namespace fs = std::filesystem;
using namespace testing;

namespace {

constexpr char kNoRule[] = R"(<MfxRules Version="1" Unit="1" AngleUnit="0"/>)";

// What check selects, how it ends, and the findings that are accepted.
struct CheckFilesTest : HostTest {
    CheckFilesTest() {
        for (const wchar_t* folder : {L"r", L"r\\s", L"r\\s\\t", L"empty", L"[a,b]"})
            fs::create_directory(m_folder.Path(folder));
        for (const wchar_t* file :
             {L"[a,b]\\d.xml", L"r\\é b.XML", L"r\\a.xml", L"r\\s\\t\\c.xml", L"r\\s\\notes.txt"})
            m_folder.Write(file, kNoRule);
    }

    // The sample with all rules, each time with one finding of that severity.
    void WriteFindings() const {
        const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml")),
                          deviation = "<AbsoluteDeviation />", variation = "<Value>25</Value>";
        m_folder.Write(
            L"hint.xml",
            Replaced(all, deviation, "<AbsoluteDeviation><Info><Value>2</Value></Info></AbsoluteDeviation>"));
        m_folder.Write(L"warning.xml", Replaced(all, variation, variation + variation));
        m_folder.Write(L"error.xml", Replaced(all, variation, "<Value>0</Value>"));
    }

    // One file after the other, in the order of the output.
    static std::string Files(const std::vector<std::string>& files) {
        std::string lines;
        for (const std::string& file : files) lines += file + ":1: warning: there is no rule to check\n";
        return lines;
    }
};

}  // namespace

TEST_F(CheckFilesTest, SelectsTheFilesOfFoldersAndPatterns) {
    const std::string a = "r\\a.xml", b = "r\\é b.XML", c = "r\\s\\t\\c.xml";
    const std::pair<const wchar_t*, std::vector<std::string>> kCases[] = {
        {L"r", {a, c, b}},
        {L"R\\", {"R\\a.xml", "R\\s\\t\\c.xml", "R\\é b.XML"}},
        {L"./r/s", {"./r/s/t/c.xml"}},
        {L"**\\**\\c.*", {c}},
        {L"r\\*.xml", {a, b}},
        {L"r\\É*L", {b}},
        {L"r\\?.*", {a}},
        {L"*\\s\\**\\c.xml", {c}},
        {L"**\\t\\*", {c}},
        {L"r\\**", {a, "r\\s\\notes.txt", c, b}},
        {L"r\\*a*x*l", {a}},
        {L"[a,b]", {"[a,b]\\d.xml"}},
    };
    for (const auto& [name, files] : kCases) Run({L"check", name}, 1, Files(files), "");
    Run({L"check", L"r\\s", L"r\\a.xml"}, 1, Files({c, a}), "");
    for (const wchar_t* name : {L"empty", L"r\\*.yaml", L"gone\\*.xml", L"*.xml", L"r\\?\\c.xml\\*"})
        Run({L"check", L"r", name}, 2, "", StartsWith("mfxhost: " + Utf8(name) + ": "));
}

TEST_F(CheckFilesTest, ChecksTheOtherFilesOfAFolderThatCannotBeRead) {
    const HANDLE hHeld = CreateFileW(m_folder.Path(L"r\\s").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    Run({L"check", L"r"}, 3, Files({"r\\a.xml", "r\\é b.XML"}), StartsWith("mfxhost: r\\s: can't be read: "));
    CloseHandle(hHeld);
}

TEST_F(CheckFilesTest, FailsOnTheSeverityThatIsAskedFor) {
    WriteFindings();
    const std::tuple<const wchar_t*, const wchar_t*, int> kCases[] = {
        {L"hint", L"hint.xml", 1},     {L"warning", L"hint.xml", 0}, {L"warning", L"warning.xml", 1},
        {L"error", L"warning.xml", 0}, {L"Error", L"error.xml", 1},  {L"never", L"error.xml", 0},
        {L"warning", L"r\\a.xml", 1},  {L"error", L"r\\a.xml", 0},   {L"never", L"gone.xml", 3},
    };
    for (const auto& [severity, file, nExitCode] : kCases)
        Run({L"check", file, L"--fail-on", severity}, nExitCode, _, _);
    Run({L"check", L"hint.xml"}, 0, HasSubstr("hint: "), "");
    Run({L"check", L"warning.xml", L"hint.xml", L"--severity", L"error"}, 1, "",
        "mfxhost: failing findings that --severity hides: 1\n");
    Run({L"check", L"hint.xml", L"--fail-on", L"fatal"}, 2, "", HasSubstr("fatal"));
    Run({L"check", L"hint.xml", L"--json", L"--format", L"text"}, 2, "", HasSubstr("--format"));
}

TEST_F(CheckFilesTest, AcceptsFindings) {
    WriteFindings();
    const auto write = [&](const std::string& entries) {
        m_folder.Write(L"r\\accepted.json", "{\"version\": 1, \"accepted\": [" + entries + "]}");
    };
    const std::string everywhere =
        R"({"key": "variation-not-positive", "place": "19030/29167", "reason": "as\ncast"})";
    const auto check = [&](int nExitCode, const TextMatcher& out, const TextMatcher& err) {
        Run({L"check", L"error.xml", L"warning.xml", L"--fail-on", L"error", L"--accepted",
             L"r\\accepted.json"},
            nExitCode, out, err);
    };
    write(everywhere);
    check(0, ContainsRegex("^error.xml:\\d+: error .accepted: as.ncast.: Wall Thickness Variation: "), "");
    // The path starts at the folder of the accepted findings.
    write(everywhere + ", " +
          Replaced(everywhere, "\"reason\": \"as", R"("file": "../ERROR.xml", "reason": "here: as)"));
    check(0, HasSubstr("(accepted: here: as"), "");
    write(Replaced(everywhere, "\"reason\"", R"("file": "error.xml", "reason")"));
    check(1, HasSubstr(": error: "),
          "mfxhost: r\\accepted.json: entry 1: variation-not-positive at 19030/29167 in error.xml was not "
          "found; the entry can be removed\n");
    // An entry for a document that was not checked says nothing; nor does it matter when nothing was read.
    write(everywhere + R"(, {"key": "no-rule", "place": null, "file": "a.xml", "reason": "it is a draft"})");
    check(0, _, "");
    Run({L"check", L"r\\a.xml", L"--accepted", L"r\\accepted.json"}, 0,
        HasSubstr("(accepted: it is a draft)"), HasSubstr("entry 1: "));
    Run({L"check", L"gone.xml", L"--accepted", L"r\\accepted.json"}, 3, "", Not(HasSubstr("entry")));
}

TEST_F(CheckFilesTest, RefusesAcceptedFindingsWithErrors) {
    const std::string good = R"({"key": "no-rule", "place": null, "reason": "r"})";
    const auto entry = [&](const std::string& part, const std::string& by) {
        return "{\"version\": 1,\n\"accepted\": [" + good + ", " + Replaced(good, part, by) + "]}";
    };
    const std::pair<std::string, const char*> kCases[] = {
        {"", "a.json: it is not JSON: parse error at line 1, "},
        {"{\"version\": 1,\n\"accepted\": [}", "a.json: it is not JSON: parse error at line 2, "},
        {"{\"version\": 1,\n\"accepted\": [\"\xC3\x28\"]}",
         "a.json: it is not JSON: parse error at line 2, "},
        {"{\"version\": 1e999}", "a.json: it is not JSON: number overflow"},
        {"[]", "a.json: it is not an object"},
        {"{\"accepted\": []}", "a.json: \"version\" is missing"},
        {"{\"version\": 2, \"accepted\": []}", "a.json: version 2 is not known; it must be 1"},
        {"{\"version\": " + Repeated("[", 100000) + Repeated("]", 100000) + ", \"accepted\": []}",
         "a.json: \"version\" is not a number"},
        {"{\"version\": 1, \"accepted\": {}}", "a.json: \"accepted\" is not an array"},
        {entry(good, "7"), "a.json: entry 2: it is not an object"},
        {entry("no-rule", "no-rul"),
         "entry 2: there is no finding \"no-rul\"; the nearest keys are no-rule, "},
        {entry("\"key\": \"no-rule\",", ""), "entry 2: \"key\" is missing"},
        {entry("\"place\": null,", ""), "entry 2: \"place\" is missing"},
        {entry("null", "19040"), "entry 2: \"place\" is not a text"},
        {entry(", \"reason\": \"r\"", ""), "entry 2: \"reason\" is missing"},
        {entry("\"r\"", "\" \""), "entry 2: \"reason\" is empty"},
        {entry("null", "null, \"until\": 2030"), "entry 2: the property \"until\" is not known"},
        {entry("null", "null, \"place\": null"), "a.json: the property \"place\" stands twice"},
        {entry("\"r\"", "\"again\""), "entry 2: it is the same as entry 1"},
    };
    for (const auto& [bytes, reason] : kCases) {
        m_folder.Write(L"a.json", bytes);
        Run({L"check", L"r", L"--accepted", L"a.json"}, 3, "",
            AllOf(StartsWith("mfxhost: a.json:"), HasSubstr(reason)));
    }
    Run({L"check", L"r", L"--accepted", L"gone.json"}, 3, "", HasSubstr("gone.json: can't be read"));
}

TEST_F(CheckFilesTest, WritesPathsAsUris) {
    const std::pair<const wchar_t*, const char*> kCases[] = {
        {L"a b\\é#.xml", "a%20b/%C3%A9%23.xml"},
        {L"..\\gone.xml", "../gone.xml"},
        {L"c:gone.xml", "c%3Agone.xml"},
        {L"C:\\gone%.xml", "file:///C:/gone%25.xml"},
        {L"\\\\?\\C:\\gone.xml", "file:///C:/gone.xml"},
        {L"\\\\gone\\share\\a.xml", "file://gone/share/a.xml"},
    };
    for (const auto& [path, uri] : kCases)
        Run({L"check", path, L"--format", L"sarif"}, 3, HasSubstr("\"uri\": \"" + std::string(uri) + "\""),
            _);
}
