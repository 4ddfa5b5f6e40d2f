#include "host/documentation/optionlist.h"

#include <utility>

namespace brvhost {
namespace {

void Collect(const CLI::App& app, CommandText& command) {
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_positional()) {
      command.arguments.push_back({option->get_name(), option->get_expected_max() > 1});
      continue;
    }
    OptionText text;
    for (const std::string& name : option->get_snames()) text.names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) text.names.push_back("--" + name);
    (option->get_type_size() > 0 ? text.value : text.optionalValue) = option->get_type_name();
    text.about = option->get_description();
    command.options.push_back(std::move(text));
  }
}

}  // namespace

std::vector<CommandText> DescribeCommands(const CLI::App& app) {
  std::vector<CommandText> commands;
  for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
    CommandText command{subcommand->get_name(), subcommand->get_description(), subcommand->get_footer(), {}, {}};
    Collect(*subcommand, command);
    commands.push_back(std::move(command));
  }
  return commands;
}

std::vector<OptionText> DescribeOptions(const CLI::App& app) {
  CommandText whole;
  Collect(app, whole);
  return whole.options;
}

}  // namespace brvhost
