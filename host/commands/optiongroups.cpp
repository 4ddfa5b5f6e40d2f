#include "host/commands/optiongroups.h"

#include <algorithm>
#include <utility>

namespace brvhost {

std::vector<OptionGroup> OptionGroupsOf(const CLI::App& command) {
  std::vector<OptionGroup> groups;
  for (const CLI::Option* const option : command.get_options()) {
    if (option->get_positional()) continue;
    auto group = std::ranges::find(groups, option->get_group(), &OptionGroup::heading);
    if (group == groups.end()) group = groups.insert(group, OptionGroup{option->get_group(), {}});
    group->options.push_back(option);
  }
  // That of the help, whose name differs from release to release of the parser.
  if (!groups.empty()) groups.front().heading = "Options";
  return groups;
}

}  // namespace brvhost
