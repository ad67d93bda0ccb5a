#pragma once

#include "DatabaseLibrary.h"
#include "ExitCode.h"
#include "RuleModule.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <optional>
#include <string>
#include <vector>

// The command line: the commands with their options, of which it runs the one that is named.
class CommandLine {
  public:
    // Whether a command uses the material database. Its library is loaded for those alone that do.
    enum class Database { Unused, UsedIfThere, Needed };

    using Command = std::function<ExitCode(const RuleModule&)>;

    CommandLine();

    // Adds a command, with examples of its use for the help; the caller adds its options.
    CLI::App& Add(const char* name, const char* description, const std::vector<std::string>& examples,
                  Command command, Database database = Database::Unused);

    // The named command, which opens windows, speaks the user's language. Others speak English unless told
    // otherwise: what they print and save is the same on every machine.
    void UseLanguageOfUser(CLI::App& command);

    // For a running command that needs it.
    IMaterialDatabase& GetDatabase() const { return m_databaseLibrary->GetDatabase(); }

    // Runs the named command. Throws CommandError for a wrong command line, and what the command throws.
    ExitCode Run(int argc, const char* const* argv);

  private:
    void AddHelpCommand();
    void PrintHelp() const;
    ExitCode RunCommand();
    void LoadDatabase();
    std::string WrongUsage(const CLI::ParseError& error, int argc, const char* const* argv) const;
    std::string CommandNames() const;

    CLI::App m_cli;
    CLI::App* m_help = nullptr;
    Command m_command;
    std::string m_language;  // empty: none was named
    const CLI::App* m_windowCommand = nullptr;
    std::vector<std::string> m_helpTopic;  // a command, and one of its own
    Database m_database = Database::Unused;
    std::string m_databasePath;  // empty: the database decides
    std::optional<DatabaseLibrary> m_databaseLibrary;
};

// Adds a file name, or several, to a command. An empty name is refused: it is a mistake in the command line,
// not a missing option.
template <class Path>
CLI::Option* AddFile(CLI::App& command, const char* name, Path& path, const char* description) {
    const auto findFault = [](const std::string& text) {
        return text.empty() ? "the file name is empty" : "";
    };
    return command.add_option(name, path, description)->type_name("")->check(CLI::Validator(findFault, ""));
}

// A document to read, and one to write instead of replacing it.
struct InputAndOutput {
    std::string input;
    std::string output;  // empty: the input is replaced

    const std::string& Target() const { return output.empty() ? input : output; }
};
void AddInputAndOutput(CLI::App& command, InputAndOutput& files);
