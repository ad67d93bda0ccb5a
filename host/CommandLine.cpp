#include "CommandLine.h"

#include "Console.h"
#include "LanguageUtil.h"
#include "Text.h"

#include <utility>
#include <vector>

namespace {

std::string Joined(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words) joined += (joined.empty() ? "" : ", ") + word;
    return joined;
}

std::vector<std::string> LanguageWords() {
    std::vector<std::string> words;
    for (const CString& word : CLanguageUtil::GetLanguageWords()) words.push_back(ToUtf8(word));
    return words;
}

}  // namespace

CommandLine::CommandLine()
    : m_cli("Lists, shows, checks, compares, converts and edits rule documents of the sand casting rules.",
            "mfxhost") {
    m_cli.require_subcommand(1);
    m_cli.fallthrough();                       // --lang stands before or behind the command
    m_cli.allow_windows_style_options(false);  // "/file" is a file
    m_cli.set_version_flag("--version", "mfxhost " MFX_VERSION);
    m_cli.footer(
        "Every command takes --lang LANGUAGE too: " + Joined(LanguageWords()) +
        ".\n"
        "Exit codes: 0 done, 1 findings, 2 wrong usage, 3 input that can't be read,\n"
        "4 something missing on the machine, or a file that can't be written or was changed meanwhile.");
    m_cli.add_option("--lang", m_language, "Language of the rules' texts, also of those that are saved")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(LanguageWords(), CLI::ignore_case));
}

CLI::App& CommandLine::Add(const char* name, const char* description, Command command, Database database) {
    CLI::App* const added = m_cli.add_subcommand(name, description);
    added->callback([this, command = std::move(command), database] {
        m_command = command;
        m_database = database;
    });
    if (database != Database::Unused)
        AddFile(*added, "--database", m_databasePath, "Material database to use instead of the user's own")
            ->type_name("FILE");
    return *added;
}

std::string CommandLine::CommandNames() const {
    std::vector<std::string> names;
    for (const CLI::App* command : m_cli.get_subcommands({})) names.push_back(command->get_name());
    const std::string last = names.back();
    names.pop_back();
    return Joined(names) + " or " + last;
}

// The library's own words for a wrong command line, but for those that would not help.
std::string CommandLine::WrongUsage(const CLI::ParseError& error, int argc, const char* const* argv) const {
    const auto chosen = m_cli.get_subcommands();
    std::string reason = error.what();
    if (argc <= 1) reason = "give a command: " + CommandNames();
    if (chosen.empty() && argc > 1 && argv[1][0] != '-')
        reason = "\"" + std::string(argv[1]) + "\" is not a command";
    return reason + "; mfxhost " + (chosen.empty() ? "" : chosen.front()->get_name() + " ") +
           "--help tells the usage";
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
        throw CommandError(ExitCode::WrongUsage, WrongUsage(error, argc, argv));
    }
    return RunCommand();
}

// The library comes before the module, and goes after it.
void CommandLine::LoadDatabase() {
    if (m_database == Database::Unused) return;
    try {
        m_databaseLibrary.emplace();
        if (!m_databasePath.empty()) m_databaseLibrary->GetDatabase().SetPath(FromUtf8(m_databasePath));
    } catch (const DocumentError&) {
        if (m_database == Database::Needed) throw;
    }
}

ExitCode CommandLine::RunCommand() {
    CLanguageUtil::SetMfxKitLang(FromUtf8(m_language));
    LoadDatabase();
    const RuleModule module;
    if (m_databaseLibrary) module.SetDatabaseModules({m_databaseLibrary->GetName()});
    if (const CString& missing = module.GetMissingLanguageLibrary(); !missing.IsEmpty())
        PrintError("mfxhost: " + ToUtf8(missing) + " is missing or damaged; the texts are in English\n");
    return m_command(module);
}

void AddInputAndOutput(CLI::App& command, std::string& input, std::string& output) {
    AddFile(command, "FILE", input, "Rule document to read, and to replace unless -o is given")->required();
    AddFile(command, "-o,--output", output, "File to write instead of FILE; replaces an existing one")
        ->type_name("FILE");
}
