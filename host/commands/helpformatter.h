// Lays out the help, the same with every release of the library that parses command lines, in 80 columns.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brvhost {

class HelpFormatter : public CLI::FormatterBase {
 public:
  // `name` is that of the program, with that of the command.
  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
};

}  // namespace brvhost
