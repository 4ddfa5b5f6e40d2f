#include <string>

#include "host/commands/commands.h"
#include "host/commands/parsing.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"

namespace brvhost {
namespace {

// As --help shows it. The parser's own function would always explain the command that was parsed.
std::string HelpOn(const CLI::App& command, const std::string& name) {
  return command.get_formatter()->make_help(&command, name, CLI::AppFormatMode::Normal);
}

}  // namespace

int ShowHelp(const CLI::App& app, const Options& options) {
  const std::string& name = options.explained;
  const std::string& program = app.get_name();
  Print(stdout, "{}", name.empty() ? HelpOn(app, program) : HelpOn(CommandNamed(app, name), program + " " + name));
  return kDone;
}

}  // namespace brvhost
