// The options of a command, by the headings that they are listed under.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace brvhost {

struct OptionGroup {
  std::string heading;
  std::vector<const CLI::Option*> options;
};

// In the order of their first options; that of the options that are in no particular one is first.
std::vector<OptionGroup> OptionGroupsOf(const CLI::App& command);

}  // namespace brvhost
