#include "host/commands/wrongusage.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "host/commands/argumentnames.h"
#include "host/text/nearest.h"

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

std::vector<std::string> CommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}

// The name in "--name=value".
std::string NameIn(const std::string& argument) {
  const std::string name = argument.substr(0, argument.find('='));
  return name.substr(std::min(name.find_first_not_of('-'), name.size()));
}

std::string NearestOption(const CLI::App& app, const std::string& argument) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : app.get_options())
    std::ranges::copy(option->get_lnames(), std::back_inserter(names));
  return NearestName(NameIn(argument), names);
}

bool HasOption(const CLI::App& command, const std::string& argument) {
  return command.get_option_no_throw("--" + NameIn(argument)) != nullptr;
}

std::string DidYouMean(const std::string& name) { return fmt::format("did you mean {}?", name); }

// The first argument that belongs to nothing; empty where there is none.
std::string Unexpected(const CLI::App& app, const CLI::App& command) {
  std::vector<std::string> rest = command.remaining();
  std::ranges::copy(app.remaining(), std::back_inserter(rest));
  const auto first = std::ranges::find_if(rest, [](const std::string& argument) { return argument != "--"; });
  if (first == rest.end()) return "";
  if (first->starts_with('-')) {
    const std::string nearest = NearestOption(command, *first);
    const std::string advice = nearest.empty() ? SeeHelp(command) : DidYouMean("--" + nearest);
    return fmt::format("there is no option {}; {}", *first, advice);
  }
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
  return fmt::format("a command is missing, one of {}; --help explains them", fmt::join(CommandNames(app), ", "));
}

std::string UnknownCommand(const CLI::App& app, const std::string& argument) {
  if (!argument.starts_with('-')) {
    const std::string nearest = NearestName(argument, CommandNames(app));
    return fmt::format("there is no command {}; {}", argument,
                       nearest.empty() ? "--help lists them" : DidYouMean(nearest));
  }
  std::string advice = "--help lists what there is";
  for (const std::string& name : CommandNames(app)) {
    if (HasOption(*app.get_subcommand(name), argument) && !HasOption(app, argument)) {
      advice = fmt::format("it comes after a command, such as {}", name);
    }
  }
  const std::string nearest = NearestOption(app, argument);
  if (!nearest.empty() && !HasOption(app, argument)) advice = DidYouMean("--" + nearest);
  return fmt::format("there is no option {} before a command; {}", argument, advice);
}

std::string MissingArguments(const CLI::App& command) {
  for (const auto& [name, instead] : {std::pair(kScoreArgument, kScoreList), std::pair(kBundleArgument, kFactList)}) {
    const CLI::Option* const argument = command.get_option_no_throw(name);
    if (argument == nullptr || argument->get_required() || argument->count() > 0) continue;
    if (command.get_option(instead)->count() == 0) return Needs(command, *argument);
  }
  return "";
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
