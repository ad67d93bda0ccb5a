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

// The library's own words for a wrong command line, but for those that would not help.
std::string UsageError(const CLI::ParseError& error, const CLI::App& cli, int argc, const char* const* argv) {
    std::string reason = error.what();
    if (argc <= 1) reason = "give a command: list, new, show, check, diff, convert, configure or sheet";
    if (cli.get_subcommands().empty() && argc > 1 && argv[1][0] != '-')
        reason = "\"" + std::string(argv[1]) + "\" is not a command";
    return reason + "; mfxhost --help tells the usage";
}

// Reads the command line and runs the command it names.
int Run(int argc, const char* const* argv) {
    CLI::App cli(
        "Lists, shows, checks, compares, converts and edits rule documents of the sand casting rules.",
        "mfxhost");
    cli.require_subcommand(1);
    cli.fallthrough();                       // --lang stands before or behind the command
    cli.allow_windows_style_options(false);  // "/file" is a file
    cli.set_version_flag("--version", "mfxhost " MFX_VERSION);
    cli.footer("Every command takes --lang LANGUAGE too: " + Joined(LanguageWords()) +
               ".\n"
               "Exit codes: 0 done, 1 findings, 2 wrong usage, 3 input that can't be read,\n"
               "4 something missing on the machine or a file that can't be written.");

    std::string language;
    cli.add_option("--lang", language, "Language of the rules' texts, also of those that are saved")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(LanguageWords(), CLI::ignore_case));

    std::function<ExitCode(const RuleModule&)> command;
    const auto add = [&](const char* name, const char* description, auto run) {
        CLI::App* sub = cli.add_subcommand(name, description);
        sub->callback([&command, run] { command = run; });
        return sub;
    };

    add("list", "Print the module's name, summary and rules",
        [](const RuleModule& module) { return ListRules(module); });

    std::string path;
    bool bForce = false;
    CLI::App* create =
        add("new", "Write a rule document with every rule as it is by default",
            [&](const RuleModule& module) { return NewDocument(module, FromUtf8(path), bForce); });
    AddFile(*create, "FILE", path, "Rule document to write")->required();
    create->add_flag("--force", bForce, "Replace an existing file");

    bool bShowJson = false;
    CLI::App* show =
        add("show", "Print the rules, parameters and constraints of a rule document",
            [&](const RuleModule& module) { return ShowDocument(module, FromUtf8(path), bShowJson); });
    AddFile(*show, "FILE", path, "Rule document to read")->required();
    show->add_flag("--json", bShowJson, "Print them as JSON");

    std::vector<std::string> paths;
    std::string severity;
    CheckOptions checkOptions;
    CLI::App* check =
        add("check", "Report what is wrong or unusual in rule documents", [&](const RuleModule& module) {
            for (const Severity candidate : {Severity::Warning, Severity::Error})
                if (CLI::detail::to_lower(severity) == SeverityName(candidate))
                    checkOptions.severity = candidate;
            for (const std::string& file : paths) checkOptions.files.push_back(FromUtf8(file));
            return CheckDocuments(module, checkOptions);
        });
    AddFile(*check, "FILE", paths, "Rule documents to check")->required();
    check->add_option("--severity", severity, "The least that is reported: hint, warning or error")
        ->type_name("SEVERITY")
        ->check(CLI::IsMember(std::vector<std::string>{"hint", "warning", "error"}, CLI::ignore_case)
                    .description(""));
    check->add_flag("--json", checkOptions.bJson, "Print the findings as JSON");

    DiffOptions diffOptions;
    std::string right;
    CLI::App* diff = add("diff", "Print where two rule documents differ", [&](const RuleModule& module) {
        if (right.empty() && !diffOptions.bDefaults)
            throw HostError(ExitCode::Usage, "diff: give a second file, or --defaults");
        diffOptions.strLeft = FromUtf8(path);
        diffOptions.strRight = FromUtf8(right);
        return DiffDocuments(module, diffOptions);
    });
    AddFile(*diff, "A", path, "Rule document; its units are those of the output")->required();
    CLI::Option* pRight = AddFile(*diff, "B", right, "Rule document to compare with");
    CLI::Option* pDefaults = diff->add_flag("--defaults", diffOptions.bDefaults,
                                            "Compare A with its rules as they are by default");
    diff->add_flag("--json", diffOptions.bJson, "Print the differences as JSON");
    pDefaults->excludes(pRight);

    std::string output;
    ConvertOptions options;
    CLI::App* convert =
        add("convert",
            "Convert a rule document to other units; names on standard error the values that lose digits",
            [&](const RuleModule& module) {
                options.strInput = FromUtf8(path);
                options.strOutput = FromUtf8(output);
                return ConvertDocument(module, options);
            });
    AddFile(*convert, "FILE", path, "Rule document to read, and to replace unless -o is given")->required();
    convert->add_option("--length", options.lengthUnit, "New length unit: " + LengthUnitSymbols())
        ->type_name("UNIT");
    convert->add_option("--angle", options.angleUnit, "New angle unit: " + AngleUnitSymbols())
        ->type_name("UNIT");
    convert->add_flag("--losses", options.bAllLosses,
                      "Name every value that loses digits, not only the ten with the largest losses");
    AddFile(*convert, "-o,--output", output, "File to write instead of FILE; replaces an existing one")
        ->type_name("FILE");

    ConfigureOptions configureOptions;
    CLI::App* configure = add("configure", "Open the dialog of a rule and save what is changed in it",
                              [&](const RuleModule& module) {
                                  configureOptions.strInput = FromUtf8(path);
                                  configureOptions.strOutput = FromUtf8(output);
                                  return ConfigureDocument(module, configureOptions);
                              });
    AddFile(*configure, "FILE", path, "Rule document to read, and to replace unless -o is given")->required();
    configure->add_option("--rule", configureOptions.nRuleId, "Id of the rule, as list and show print it")
        ->type_name("ID")
        ->required();
    AddFile(*configure, "-o,--output", output, "File to write instead of FILE; replaces an existing one")
        ->type_name("FILE");

    SheetOptions sheetOptions;
    std::string columns = "A,B,C,D,E";
    CLI::App* sheet =
        add("sheet", "Print what an import of a workbook's columns reads", [&](const RuleModule&) {
            sheetOptions.strBook = FromUtf8(path);
            sheetOptions.strColumns = FromUtf8(columns);
            return PrintSheet(sheetOptions);
        });
    AddFile(*sheet, "BOOK", path, "Workbook to read; its folder gets a file MFX.log for a moment")
        ->required();
    sheet
        ->add_option("--columns", columns,
                     "Letters of the columns; A, the first, decides how many rows there are")
        ->type_name("A,B,C")
        ->capture_default_str();
    sheet->add_flag("--json", sheetOptions.bJson, "Print them as JSON");

    try {
        cli.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        const auto chosen = cli.get_subcommands();
        Print(chosen.empty() ? cli.help() : chosen.front()->help("mfxhost"));
        return static_cast<int>(ExitCode::Done);
    } catch (const CLI::CallForVersion& version) {
        Print(std::string(version.what()) + "\n");
        return static_cast<int>(ExitCode::Done);
    } catch (const CLI::ParseError& error) {
        throw HostError(ExitCode::Usage, UsageError(error, cli, argc, argv));
    }
    CLanguageUtil::SetMfxKitLang(FromUtf8(language));
    const RuleModule module;
    return static_cast<int>(command(module));
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
        const int nExitCode = Run(argc, pointers.data());
        if (!FlushOutput()) throw HostError(ExitCode::Missing, "standard output can't be written");
        return nExitCode;
    } catch (const HostError& error) {
        PrintError("mfxhost: " + Escaped(error.what()) + "\n");
        return static_cast<int>(error.Code());
    } catch (const std::exception& error) {
        PrintError(std::string("mfxhost: unexpected failure: ") + error.what() + "\n");
        return static_cast<int>(ExitCode::Missing);
    }
}
