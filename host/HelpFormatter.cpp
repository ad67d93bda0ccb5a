#include "HelpFormatter.h"

#include <sstream>

namespace {

// The words in lines of that width, which has to hold the longest word.
std::vector<std::string> Wrapped(const std::string& text, std::size_t width) {
    std::vector<std::string> lines(1);
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width) lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
    }
    return lines;
}

// The name, and beside it the description; below it where the name is too long.
std::string Entry(const std::string& name, const std::string& description) {
    constexpr std::size_t kNameWidth = 26;
    const std::string indent(kNameWidth, ' ');
    std::string entry = "  " + name;
    if (entry.size() + 1 > kNameWidth)
        entry += "\n" + indent;
    else
        entry.resize(kNameWidth, ' ');
    std::string separator;
    for (const std::string& line : Wrapped(description, kHelpWidth - kNameWidth)) {
        entry += separator + line;
        separator = "\n" + indent;
    }
    return entry + "\n";
}

}  // namespace

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
    return Entry(make_option_name(option, isPositional) + make_option_opts(option), make_option_desc(option));
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    return Entry(command->get_name(), command->get_description());
}

std::string HelpFormatter::make_description(const CLI::App* command) const {
    std::string description;
    for (const std::string& line : Wrapped(command->get_description(), kHelpWidth))
        description += line + "\n";
    return description;
}

// Lines that are indented, those of examples, stay as they are.
std::string HelpFormatter::make_footer(const CLI::App* command) const {
    std::string footer;
    std::istringstream lines(command->get_footer());
    for (std::string line; std::getline(lines, line);)
        for (const std::string& part : line.starts_with(' ') ? std::vector{line} : Wrapped(line, kHelpWidth))
            footer += part + "\n";
    return footer;
}
