#pragma once

#include <CLI/CLI.hpp>

#include <string>

inline constexpr std::size_t kHelpWidth = 80;  // columns of a terminal

// Help texts that fit into a terminal's width.
class HelpFormatter : public CLI::Formatter {
  public:
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_description(const CLI::App* command) const override;
    std::string make_footer(const CLI::App* command) const override;
};
