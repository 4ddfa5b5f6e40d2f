#include "host/commands/parsing.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "host/commands/usageerror.h"
#include "host/commands/wrongusage.h"

namespace brvhost {
namespace {

// The command that the first argument names. Null where that asks for the help or the version.
const CLI::App* CommandOf(const CLI::App& app, const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments[0].empty()) throw UsageError(NoCommand(app));
  const std::string& first = arguments[0];
  if (app.get_option_no_throw(first) != nullptr) return nullptr;
  return &CommandNamed(app, first);
}

// The parser would take the argument that follows for the value that is missing.
void RefuseEmptyValues(const CLI::App& command, const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--") return;
    if (!argument.starts_with("--") || !argument.ends_with('=')) continue;
    const std::string wrong = WrongValue(command, argument);
    if (!wrong.empty()) throw UsageError(wrong);
  }
}

}  // namespace

const CLI::App& CommandNamed(const CLI::App& app, const std::string& name) {
  const auto commands = app.get_subcommands([&](const CLI::App* command) { return command->check_name(name); });
  if (commands.empty()) throw UsageError(UnknownCommand(app, name));
  return *commands[0];
}

void ParseCommandLine(CLI::App& app, int argc, const char* const* argv) {
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const CLI::App* const command = CommandOf(app, arguments);
  if (command != nullptr) RefuseEmptyValues(*command, arguments);
  // The parser takes its arguments from the end, and leaves those that it has not reached when it throws.
  std::vector<std::string> left(arguments.rbegin(), arguments.rend());
  try {
    app.parse(left);
  } catch (const CLI::Success&) {
    throw;
  } catch (const CLI::ParseError& error) {
    const std::size_t taken = arguments.size() - left.size();
    throw UsageError(WrongUsage(error, app, arguments[std::max<std::size_t>(taken, 1) - 1]));
  }
  const std::string wrong = command == nullptr ? "" : MissingArguments(*command);
  if (!wrong.empty()) throw UsageError(wrong);
}

}  // namespace brvhost
