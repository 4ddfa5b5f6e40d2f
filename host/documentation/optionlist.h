// The program's commands and options, as its documentation lists them.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace brvhost {

struct ArgumentText {
  std::string name;  // BUNDLE
  std::string about;
  bool isRequired;
  bool isRepeated;
};

struct OptionText {
  std::vector<std::string> names;  // with their dashes
  std::string optionalValue;       // "[=FILE]": what may follow the name of a flag
  std::string value;               // the placeholder of its value; empty for a flag
  std::string about;
  bool isRequired;
};

struct OptionGroupText {
  std::string heading;
  std::vector<OptionText> options;
};

// A command, or the program as a whole.
struct CommandText {
  std::string name;
  std::string about;
  std::string footer;
  std::vector<ArgumentText> arguments;
  std::vector<OptionGroupText> groups;
};

CommandText DescribeProgram(const CLI::App& app);
std::vector<CommandText> DescribeCommands(const CLI::App& app);

std::vector<OptionText> OptionsOf(const CommandText& command);

}  // namespace brvhost
