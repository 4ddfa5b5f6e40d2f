// The commands and options of the program, as its documentation lists them.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace brvhost {

struct OptionText {
  std::vector<std::string> names;  // with their dashes
  std::string value;               // the placeholder of its value; empty for a flag
  std::string about;
};

struct CommandText {
  std::string name;
  std::string about;
  std::string footer;
  std::vector<std::string> arguments;  // BUNDLE, SCORE...
  std::vector<OptionText> options;
};

std::vector<CommandText> DescribeCommands(const CLI::App& app);
std::vector<OptionText> DescribeOptions(const CLI::App& app);

// The documents, whole.
std::string ManualPage(const CLI::App& app);
std::string BashCompletion(const CLI::App& app);
std::string ZshCompletion(const CLI::App& app);

}  // namespace brvhost
