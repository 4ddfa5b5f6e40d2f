#include "host/commands/wrongusage.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace brvhost {
namespace {

std::string SeeHelp(const CLI::App& command) {
  return fmt::format("`brvhost {} --help` explains what it takes", command.get_name());
}

bool IsFlag(const CLI::Option& option) { return option.get_items_expected_max() == 0; }

// As it is written on the command line: --item N, or SCORE.
std::string Written(const CLI::Option& option) {
  if (option.get_positional() || IsFlag(option)) return option.get_name();
  return option.get_name() + " " + option.get_type_name();
}

// The first argument that belongs to nothing; empty where there is none.
std::string Unexpected(const CLI::App& app, const CLI::App& command) {
  std::vector<std::string> rest = command.remaining();
  std::ranges::copy(app.remaining(), std::back_inserter(rest));
  const auto first = std::ranges::find_if(rest, [](const std::string& argument) { return argument != "--"; });
  if (first == rest.end()) return "";
  if (first->starts_with('-')) return fmt::format("there is no option {}; {}", *first, SeeHelp(command));
  return fmt::format("{}: is one argument too many; {}", *first, SeeHelp(command));
}

std::string GivenTwice(const CLI::App& command) {
  for (const CLI::Option* const option : command.get_options()) {
    if (IsFlag(*option) || option->get_expected_max() > 1 || option->results().size() < 2) continue;
    return fmt::format("{}: is given {} times; give it once", option->get_name(), option->results().size());
  }
  return "";
}

std::string Needs(const CLI::App& command, const CLI::Option& option) {
  return fmt::format("{} needs {}; {}", command.get_name(), Written(option), SeeHelp(command));
}

std::string Missing(const CLI::App& command) {
  for (const CLI::Option* const option : command.get_options()) {
    if (!option->get_required() || option->count() > 0) continue;
    return Needs(command, *option);
  }
  return "";
}

}  // namespace

std::string NoCommand(const CLI::App& app) {
  std::string names;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names += (names.empty() ? "" : ", ") + command->get_name();
  }
  return fmt::format("a command is missing, one of {}; --help explains them", names);
}

std::string UnknownCommand(const std::string& argument) {
  if (!argument.starts_with('-')) return fmt::format("there is no command {}; --help lists them", argument);
  return fmt::format("there is no option {} before a command; --help lists what there is", argument);
}

std::string MissingScores(const CLI::App& command) {
  const CLI::Option* const scores = command.get_option_no_throw(kScoreArgument);
  if (scores == nullptr || scores->count() > 0 || command.get_option(kScoreList)->count() > 0) return "";
  return Needs(command, *scores);
}

std::string WrongValue(const CLI::App& command, const std::string& argument) {
  const std::string name = argument.substr(0, argument.find('='));
  const CLI::Option* const option = command.get_option_no_throw(name);
  if (option == nullptr) return "";
  if (IsFlag(*option)) return fmt::format("{}: {} takes no value", argument, name);
  return fmt::format("{}: needs a value, {}", argument, Written(*option));
}

std::string WrongUsage(const CLI::ParseError& error, const CLI::App& app, const std::string& last) {
  const auto commands = app.get_subcommands();
  if (!commands.empty()) {
    const CLI::App& command = *commands[0];
    std::string wrong = Unexpected(app, command);
    if (wrong.empty()) wrong = GivenTwice(command);
    if (wrong.empty() && dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) wrong = Missing(command);
    if (wrong.empty() && dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
      wrong = WrongValue(command, last);
    if (!wrong.empty()) return wrong;
  }
  return fmt::format("{}: cannot be understood here; --help lists what there is", last);
}

}  // namespace brvhost
