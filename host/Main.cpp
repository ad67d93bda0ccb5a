// mfxhost: lists, shows, checks, compares, converts and edits rule documents with the rules module, and shows
// what it imports from workbooks, without the CAD system.

#include "CheckCommand.h"
#include "Commands.h"
#include "CrashReport.h"
#include "DiffCommand.h"
#include "FrameworkLibrary.h"
#include "LanguageUtil.h"
#include "SheetCommand.h"
#include "Text.h"
#include "UnitNames.h"

#include <afxwin.h>

#include <CLI/CLI.hpp>

#include <functional>
#include <vector>

namespace {

CWinApp theApp(L"mfxhost");

std::vector<std::string> LanguageWords() {
    std::vector<std::string> words;
    for (const CString& strWord : CLanguageUtil::GetLanguageWords()) words.push_back(ToUtf8(strWord));
    return words;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words) joined += (joined.empty() ? "" : ", ") + word;
    return joined;
}

// A file name; an empty one is a slip of whoever wrote the command line, not the absence of the option.
template <class Path>
CLI::Option* AddFile(CLI::App& cli, const char* name, Path& path, const char* description) {
    const auto isNotEmpty = [](const std::string& text) {
        return text.empty() ? "the file name is empty" : "";
    };
    return cli.add_option(name, path, description)->type_name("")->check(CLI::Validator(isNotEmpty, ""));
}

// The command line: which command it names, and the options of all commands.
class CommandLine {
  public:
    CommandLine();

    // Runs the command. Throws HostError for a wrong command line, and what the command throws.
    ExitCode Run(int argc, const char* const* argv);

  private:
    using Command = std::function<ExitCode(const RuleModule&)>;

    CLI::App* Add(const char* name, const char* description, Command command);
    void AddInputAndOutput(CLI::App& command);
    void AddList();
    void AddNew();
    void AddShow();
    void AddCheck();
    void AddDiff();
    void AddConvert();
    void AddConfigure();
    void AddSheet();
    std::string UsageError(const CLI::ParseError& error, int argc, const char* const* argv) const;

    CLI::App m_cli{
        "Lists, shows, checks, compares, converts and edits rule documents of the sand casting rules.",
        "mfxhost"};
    Command m_command;
    std::string m_language, m_path, m_right, m_output, m_severity, m_columns = "A,B,C,D,E";
    std::vector<std::string> m_paths;
    bool m_bForce = false, m_bShowJson = false;
    CheckOptions m_check;
    DiffOptions m_diff;
    ConvertOptions m_convert;
    ConfigureOptions m_configure;
    SheetOptions m_sheet;
};

CommandLine::CommandLine() {
    m_cli.require_subcommand(1);
    m_cli.fallthrough();                       // --lang stands before or behind the command
    m_cli.allow_windows_style_options(false);  // "/file" is a file
    m_cli.set_version_flag("--version", "mfxhost " MFX_VERSION);
    m_cli.footer("Every command takes --lang LANGUAGE too: " + Joined(LanguageWords()) +
                 ".\n"
                 "Exit codes: 0 done, 1 findings, 2 wrong usage, 3 input that can't be read,\n"
                 "4 something missing on the machine or a file that can't be written.");
    m_cli.add_option("--lang", m_language, "Language of the rules' texts, also of those that are saved")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(LanguageWords(), CLI::ignore_case));
    AddList();
    AddNew();
    AddShow();
    AddCheck();
    AddDiff();
    AddConvert();
    AddConfigure();
    AddSheet();
}

CLI::App* CommandLine::Add(const char* name, const char* description, Command command) {
    CLI::App* const added = m_cli.add_subcommand(name, description);
    added->callback([this, command] { m_command = command; });
    return added;
}

void CommandLine::AddInputAndOutput(CLI::App& command) {
    AddFile(command, "FILE", m_path, "Rule document to read, and to replace unless -o is given")->required();
    AddFile(command, "-o,--output", m_output, "File to write instead of FILE; replaces an existing one")
        ->type_name("FILE");
}

void CommandLine::AddList() {
    Add("list", "Print the module's name, summary and rules",
        [](const RuleModule& module) { return ListRules(module); });
}

void CommandLine::AddNew() {
    CLI::App& create =
        *Add("new", "Write a rule document with every rule as it is by default",
             [this](const RuleModule& module) { return NewDocument(module, FromUtf8(m_path), m_bForce); });
    AddFile(create, "FILE", m_path, "Rule document to write")->required();
    create.add_flag("--force", m_bForce, "Replace an existing file");
}

void CommandLine::AddShow() {
    CLI::App& show = *Add(
        "show", "Print the rules, parameters and constraints of a rule document",
        [this](const RuleModule& module) { return ShowDocument(module, FromUtf8(m_path), m_bShowJson); });
    AddFile(show, "FILE", m_path, "Rule document to read")->required();
    show.add_flag("--json", m_bShowJson, "Print them as JSON");
}

void CommandLine::AddCheck() {
    const auto run = [this](const RuleModule& module) {
        for (const Severity candidate : {Severity::Warning, Severity::Error})
            if (CLI::detail::to_lower(m_severity) == SeverityName(candidate)) m_check.severity = candidate;
        for (const std::string& file : m_paths) m_check.files.push_back(FromUtf8(file));
        return CheckDocuments(module, m_check);
    };
    CLI::App& check = *Add("check", "Report what is wrong or unusual in rule documents", run);
    AddFile(check, "FILE", m_paths, "Rule documents to check")->required();
    check.add_option("--severity", m_severity, "The least that is reported: hint, warning or error")
        ->type_name("SEVERITY")
        ->check(CLI::IsMember(std::vector<std::string>{"hint", "warning", "error"}, CLI::ignore_case)
                    .description(""));
    check.add_flag("--json", m_check.bJson, "Print the findings as JSON");
}

void CommandLine::AddDiff() {
    const auto run = [this](const RuleModule& module) {
        if (m_right.empty() && !m_diff.bDefaults)
            throw HostError(ExitCode::Usage, "diff: give a second file, or --defaults");
        m_diff.strLeft = FromUtf8(m_path);
        m_diff.strRight = FromUtf8(m_right);
        return DiffDocuments(module, m_diff);
    };
    CLI::App& diff = *Add("diff", "Print where two rule documents differ", run);
    AddFile(diff, "A", m_path, "Rule document; its units are those of the output")->required();
    CLI::Option* const pRight = AddFile(diff, "B", m_right, "Rule document to compare with");
    diff.add_flag("--defaults", m_diff.bDefaults, "Compare A with its rules as they are by default")
        ->excludes(pRight);
    diff.add_flag("--json", m_diff.bJson, "Print the differences as JSON");
}

void CommandLine::AddConvert() {
    const auto run = [this](const RuleModule& module) {
        m_convert.strInput = FromUtf8(m_path);
        m_convert.strOutput = FromUtf8(m_output);
        return ConvertDocument(module, m_convert);
    };
    CLI::App& convert = *Add(
        "convert",
        "Convert a rule document to other units; names on standard error the values that lose digits", run);
    convert.add_option("--length", m_convert.lengthUnit, "New length unit: " + LengthUnitSymbols())
        ->type_name("UNIT");
    convert.add_option("--angle", m_convert.angleUnit, "New angle unit: " + AngleUnitSymbols())
        ->type_name("UNIT");
    convert.add_flag("--losses", m_convert.bAllLosses,
                     "Name every value that loses digits, not only the ten with the largest losses");
    AddInputAndOutput(convert);
}

void CommandLine::AddConfigure() {
    const auto run = [this](const RuleModule& module) {
        m_configure.strInput = FromUtf8(m_path);
        m_configure.strOutput = FromUtf8(m_output);
        return ConfigureDocument(module, m_configure);
    };
    CLI::App& configure = *Add("configure", "Open the dialog of a rule and save what is changed in it", run);
    configure.add_option("--rule", m_configure.nRuleId, "Id of the rule, as list and show print it")
        ->type_name("ID")
        ->required();
    AddInputAndOutput(configure);
}

void CommandLine::AddSheet() {
    const auto run = [this](const RuleModule&) {
        m_sheet.strBook = FromUtf8(m_path);
        m_sheet.strColumns = FromUtf8(m_columns);
        return PrintSheet(m_sheet);
    };
    CLI::App& sheet = *Add("sheet", "Print what an import of a workbook's columns reads", run);
    AddFile(sheet, "BOOK", m_path, "Workbook to read; its folder gets a file MFX.log for a moment")
        ->required();
    sheet
        .add_option("--columns", m_columns,
                    "Letters of the columns; A, the first, decides how many rows there are")
        ->type_name("A,B,C")
        ->capture_default_str();
    sheet.add_flag("--json", m_sheet.bJson, "Print them as JSON");
}

// The library's own words for a wrong command line, but for those that would not help.
std::string CommandLine::UsageError(const CLI::ParseError& error, int argc, const char* const* argv) const {
    std::string reason = error.what();
    if (argc <= 1) reason = "give a command: list, new, show, check, diff, convert, configure or sheet";
    if (m_cli.get_subcommands().empty() && argc > 1 && argv[1][0] != '-')
        reason = "\"" + std::string(argv[1]) + "\" is not a command";
    return reason + "; mfxhost --help tells the usage";
}

ExitCode CommandLine::Run(int argc, const char* const* argv) {
    try {
        m_cli.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        const auto chosen = m_cli.get_subcommands();
        Print(chosen.empty() ? m_cli.help() : chosen.front()->help("mfxhost"));
        return ExitCode::Done;
    } catch (const CLI::CallForVersion& version) {
        Print(std::string(version.what()) + "\n");
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        throw HostError(ExitCode::Usage, UsageError(error, argc, argv));
    }
    CLanguageUtil::SetMfxKitLang(FromUtf8(m_language));
    const RuleModule module;
    return m_command(module);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    PrepareConsole();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    std::vector<std::string> arguments;
    for (int i = 0; i < argc; ++i) arguments.push_back(ToUtf8(argv[i]));
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
    try {
        LoadFrameworkLibrary();
        const ExitCode exitCode = CommandLine().Run(argc, pointers.data());
        if (!FlushOutput()) throw HostError(ExitCode::Missing, "standard output can't be written");
        return static_cast<int>(exitCode);
    } catch (const HostError& error) {
        PrintError("mfxhost: " + Escaped(error.what()) + "\n");
        return static_cast<int>(error.Code());
    } catch (const std::exception& error) {
        PrintError(std::string("mfxhost: unexpected failure: ") + error.what() + "\n");
        return static_cast<int>(ExitCode::Missing);
    }
}
