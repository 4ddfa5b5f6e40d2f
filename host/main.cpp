#include <fmt/format.h>

#include <exception>

#include "host/batch/exitstatus.h"
#include "host/bundle/extension.h"
#include "host/commands/commands.h"

namespace {

using namespace brvhost;

int Perform(const CLI::App& app, const Options& options) {
  if (app.got_subcommand("items")) return ListItems(options);
  if (app.got_subcommand("info")) return ShowInfo(options);
  if (app.got_subcommand("run")) return Run(options);
  return Check(options);
}

int Explain(int status, const char* message) {
  fmt::print(stderr, "brvhost: {}\n", message);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  const auto app = DescribeCommandLine(options);
  try {
    app->parse(argc, argv);
    return Perform(*app, options);
  } catch (const CLI::Success& success) {
    return app->exit(success);
  } catch (const CLI::ParseError& error) {
    return Explain(kBadInput, error.what());
  } catch (const UsageError& error) {
    return Explain(kBadInput, error.what());
  } catch (const BundleError& error) {
    return Explain(kBadBundle, error.what());
  } catch (const std::exception& error) {
    return Explain(kFailed, error.what());
  }
}
