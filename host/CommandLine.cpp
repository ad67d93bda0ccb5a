#include "CommandLine.h"

#include "Commit.h"
#include "Console.h"
#include "DocumentFile.h"
#include "HelpFormatter.h"
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

// "mfxhost 0.9.0 (commit 1a2b3c4d5e)".
std::string VersionText() {
    const std::string commit = kCommit;
    return "mfxhost " MFX_VERSION + (commit.empty() ? "" : " (commit " + commit + ")");
}

std::string Examples(const std::vector<std::string>& examples) {
    std::string text = examples.size() > 1 ? "Examples:\n" : "Example:\n";
    for (const std::string& example : examples) text += "  " + example + "\n";
    return text;
}

// The library takes an argument in brackets for a list. A mark before it keeps it whole.
constexpr char kWholeMark = '\x1F';

std::string Marked(const std::string& argument) {
    const bool isInBrackets = argument.starts_with('[') && argument.ends_with(']');
    return isInBrackets ? kWholeMark + argument : argument;
}

std::string Unmarked(const std::string& argument) {
    return argument.starts_with(kWholeMark) ? argument.substr(1) : argument;
}

void UnmarkOptions(CLI::App& app) {
    for (CLI::Option* option : app.get_options()) option->transform(Unmarked);
    for (CLI::App* command : app.get_subcommands({})) UnmarkOptions(*command);
}

}  // namespace

CommandLine::CommandLine()
    : m_cli("Lists, shows, checks, compares, converts and edits rule documents of the sand casting rules.",
            "mfxhost") {
    m_cli.require_subcommand(1);
    m_cli.fallthrough();                       // --lang stands before or behind the command
    m_cli.allow_windows_style_options(false);  // "/file" is a file
    m_cli.set_version_flag("--version", VersionText());
    m_cli.formatter(std::make_shared<HelpFormatter>());
    m_cli.footer(
        "mfxhost help COMMAND tells the usage of a command. Every command takes --lang too. A file name - "
        "stands for standard input, or for standard output.\n \n"
        "Exit codes: 0 done, 1 something in the input needs attention, 2 wrong usage, 3 input that can't be "
        "read, 4 something missing on the machine, or a file that can't be written or was changed meanwhile, "
        "70 a crash.\n");
    m_cli
        .add_option("--lang", m_language,
                    "Language of the rules' texts, also of those that are saved: " + Joined(LanguageWords()) +
                        " (english unless told otherwise; in dialogs that of Windows)")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(LanguageWords(), CLI::ignore_case).description(""));
    AddHelpCommand();
}

void CommandLine::AddHelpCommand() {
    m_help = m_cli.add_subcommand("help", "Tell the usage of the program, or of a command");
    m_help->footer(Examples({"mfxhost help convert"}));
    m_help->add_option("COMMAND", m_helpTopic, "The command")->type_name("")->expected(1, 2);
}

CLI::App& CommandLine::Add(const char* name, const char* description,
                           const std::vector<std::string>& examples, Command command, Database database) {
    CLI::App* const added = m_cli.add_subcommand(name, description);
    added->footer(Examples(examples));
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
    else if (const auto unknown = m_cli.remaining(true);
             !unknown.empty() && dynamic_cast<const CLI::RequiredError*>(&error))
        reason = "\"" + unknown.front() + "\" is not known here";
    std::erase(reason, kWholeMark);
    return reason + "; mfxhost " + (chosen.empty() ? "" : chosen.front()->get_name() + " ") +
           "--help tells the usage";
}

ExitCode CommandLine::Run(int argc, const char* const* argv) {
    UnmarkOptions(m_cli);
    std::vector<std::string> arguments;  // the library wants the last one first
    for (int i = argc; --i > 0;) arguments.push_back(Marked(argv[i]));
    try {
        m_cli.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        m_helpTopic.clear();
        for (const CLI::App* command = &m_cli; !command->get_subcommands().empty();
             command = command->get_subcommands().front())
            m_helpTopic.push_back(command->get_subcommands().front()->get_name());
        PrintHelp();
        return ExitCode::Done;
    } catch (const CLI::CallForVersion& version) {
        Print(std::string(version.what()) + "\n");
        return ExitCode::Done;
    } catch (const CLI::ParseError& error) {
        throw CommandError(ExitCode::WrongUsage, WrongUsage(error, argc, argv));
    }
    if (!m_help->parsed()) return RunCommand();
    PrintHelp();
    return ExitCode::Done;
}

void CommandLine::UseLanguageOfUser(CLI::App& command) {
    m_windowCommand = &command;
}

void CommandLine::PrintHelp() const {
    const CLI::App* command = &m_cli;
    std::string usage = command->get_name();
    for (const std::string& word : m_helpTopic) {
        const auto commands = command->get_subcommands(
            [&](const CLI::App* candidate) { return candidate->get_name() == word; });
        if (commands.empty())
            throw CommandError(ExitCode::WrongUsage,
                               "\"" + word + "\" is not a command; mfxhost help tells them");
        command = commands.front();
        usage += " " + word;
    }
    Print(command->get_formatter()->make_help(command, usage, CLI::AppFormatMode::Normal));
}

// The library comes before the module, and goes after it.
void CommandLine::LoadDatabase() {
    if (m_database == Database::Unused) return;
    try {
        m_databaseLibrary.emplace();
        if (IsFolder(FromUtf8(m_databasePath)))
            throw CommandError(ExitCode::UnreadableInput, m_databasePath + ": can't be read: it is a folder");
        if (!m_databasePath.empty()) m_databaseLibrary->GetDatabase().SetPath(FromUtf8(m_databasePath));
    } catch (const DocumentError&) {
        if (m_database == Database::Needed) throw;
    }
}

ExitCode CommandLine::RunCommand() {
    const bool isForUser = m_windowCommand && m_windowCommand->parsed();
    const std::string language = m_language.empty() && !isForUser ? "english" : m_language;
    CLanguageUtil::SetMfxKitLang(FromUtf8(language));
    LoadDatabase();
    const RuleModule module;
    if (m_databaseLibrary) module.SetDatabaseModules({m_databaseLibrary->GetName()});
    if (const CString& missing = module.GetMissingLanguageLibrary(); !missing.IsEmpty())
        PrintError("mfxhost: " + ToUtf8(missing) + " is missing or damaged; the texts are in English\n");
    return m_command(module);
}

void AddInputAndOutput(CLI::App& command, InputAndOutput& files) {
    AddFile(command, "FILE", files.input,
            "Rule document to read, and to replace unless -o is given; - for standard input and output")
        ->required();
    AddFile(command, "-o,--output", files.output,
            "File to write instead of FILE; replaces an existing one; - for standard output")
        ->type_name("FILE");
}
