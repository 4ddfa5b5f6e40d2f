#include "host/documentation/optionlist.h"

#include <utility>

#include "host/commands/optiongroups.h"

namespace brvhost {
namespace {

OptionText Describe(const CLI::Option& option) {
  OptionText text;
  for (const std::string& name : option.get_snames()) text.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) text.names.push_back("--" + name);
  (option.get_items_expected_max() > 0 ? text.value : text.optionalValue) = option.get_type_name();
  text.about = option.get_description();
  text.isRequired = option.get_required();
  return text;
}

CommandText Describe(const CLI::App& app) {
  CommandText command{app.get_name(), app.get_description(), app.get_footer(), {}, {}};
  for (const CLI::Option* const option : app.get_options()) {
    if (!option->get_positional()) continue;
    command.arguments.push_back(
        {option->get_name(), option->get_description(), option->get_required(), option->get_expected_max() > 1});
  }
  for (const OptionGroup& group : OptionGroupsOf(app)) {
    OptionGroupText text{group.heading, {}};
    for (const CLI::Option* const option : group.options) text.options.push_back(Describe(*option));
    command.groups.push_back(std::move(text));
  }
  return command;
}

}  // namespace

CommandText DescribeProgram(const CLI::App& app) { return Describe(app); }

std::vector<CommandText> DescribeCommands(const CLI::App& app) {
  std::vector<CommandText> commands;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(Describe(*command));
  }
  return commands;
}

std::vector<OptionText> OptionsOf(const CommandText& command) {
  std::vector<OptionText> options;
  for (const OptionGroupText& group : command.groups) {
    options.insert(options.end(), group.options.begin(), group.options.end());
  }
  return options;
}

}  // namespace brvhost
