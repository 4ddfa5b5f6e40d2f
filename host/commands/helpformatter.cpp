#include "host/commands/helpformatter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "host/commands/optiongroups.h"
#include "host/commands/prose.h"

namespace brvhost {
namespace {

// Where the explanations of options and commands begin.
constexpr std::size_t kColumn = 26;

std::string Entry(const std::string& name, const std::string& about) {
  const std::string lines = Wrapped(about, kColumn);
  if (name.size() + 4 > kColumn) return fmt::format("  {}\n{}", name, lines);
  return fmt::format("  {:<{}}{}", name, kColumn - 2, lines.substr(std::min(kColumn, lines.size())));
}

bool HasValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

// "-o, --output FILE".
std::string Names(const CLI::Option& option) {
  std::string names;
  for (const std::string& name : option.get_snames()) names += (names.empty() ? "-" : ", -") + name;
  for (const std::string& name : option.get_lnames()) names += (names.empty() ? "--" : ", --") + name;
  return names + (HasValue(option) ? " " : "") + option.get_type_name();
}

// "BUNDLE", or "[SCORE...]".
std::string Argument(const CLI::Option& option) {
  const std::string name = option.get_name() + (option.get_expected_max() > 1 ? "..." : "");
  return option.get_required() ? name : "[" + name + "]";
}

std::string Usage(const CLI::App& app, const std::string& name) {
  std::string usage = "Usage: " + name;
  for (const CLI::Option* const option : app.get_options()) {
    if (option->get_required() && !option->get_positional()) usage += " " + Names(*option);
  }
  usage += " [OPTIONS]";
  for (const CLI::Option* const option : app.get_options()) {
    if (option->get_positional()) usage += " " + Argument(*option);
  }
  return usage;
}

std::string Arguments(const CLI::App& app) {
  std::string entries;
  for (const CLI::Option* const option : app.get_options()) {
    if (option->get_positional()) entries += Entry(option->get_name(), option->get_description());
  }
  return entries.empty() ? "" : "\nArguments:\n" + entries;
}

std::string Options(const CLI::App& app) {
  std::string text;
  for (const OptionGroup& group : OptionGroupsOf(app)) {
    text += fmt::format("\n{}:\n", group.heading);
    for (const CLI::Option* const option : group.options) text += Entry(Names(*option), option->get_description());
  }
  return text;
}

std::string Commands(const CLI::App& app) {
  std::string entries;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    entries += Entry(command->get_name(), FirstClause(command->get_description()));
  }
  return entries.empty() ? "" : "\nCommands:\n" + entries;
}

}  // namespace

std::string HelpFormatter::make_help(const CLI::App* app, std::string name, CLI::AppFormatMode) const {
  const std::string commands = Commands(*app);
  return fmt::format("{}\n{}{}{}{}{}\n{}", Wrapped(app->get_description(), 0), Usage(*app, name),
                     commands.empty() ? "\n" : " COMMAND ...\n", Arguments(*app), Options(*app), commands,
                     LaidOut(PiecesOf(app->get_footer())));
}

}  // namespace brvhost
