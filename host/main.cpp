#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>
#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <initializer_list>
#include <iostream>
#include <string_view>

#include "host/bundle/loadedbundle.h"
#include "host/commands/commandline.h"
#include "host/commands/commands.h"
#include "host/commands/options.h"
#include "host/commands/parsing.h"
#include "host/commands/usageerror.h"
#include "host/process/background.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/text/printable.h"
#include "host/text/reason.h"
#include "host/version/version.h"

namespace {

using namespace brvhost;

int Perform(const CLI::App& app, const Options& options) {
  if (app.got_subcommand("list")) return ListBundles(options);
  if (app.got_subcommand("items")) return ListItems(options);
  if (app.got_subcommand("info")) return ShowInfo(options);
  if (app.got_subcommand("run")) return Run(options);
  if (app.got_subcommand("calls")) return ListCalls(options);
  if (app.got_subcommand("fuzz")) return Fuzz(options);
  if (app.got_subcommand("new")) return MakeExtension(options);
  if (app.got_subcommand("help")) return ShowHelp(app, options);
  return Check(options);
}

int Explain(int status, std::string_view message) {
  Print(stderr, "brvhost: {}\n", Printable(message));
  return status;
}

// Whoever reads a result from a file must know when it is incomplete.
int Finished(int status) {
  std::cout.flush();
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && std::cout.good()) return status;
  return Explain(status == kDone ? kFailed : status, "the standard output cannot be written");
}

// Needs no memory.
void Report(const char* reason) {
  for (const char* const text : {"brvhost: ", reason, "\n"}) std::fputs(text, stderr);
}

// The parser of the command line makes objects before main, where nothing catches what they throw, and looks options up
// in functions that let nothing out: in both it can only be memory that is lacking.
[[noreturn]] void FailWhileParsing() {
  Report(kNoMemory);
  std::_Exit(kFailed);
}

std::terminate_handler usualHandler = nullptr;

[[gnu::constructor(101)]] void ExpectParsing() { usualHandler = std::set_terminate(FailWhileParsing); }

int PerformOrExplain(int argc, char** argv) {
  Options options;
  const auto app = DescribeCommandLine(options, kVersion);
  try {
    ParseCommandLine(*app, argc, argv);
    std::set_terminate(usualHandler);
    return Finished(Perform(*app, options));
  } catch (const CLI::Success& success) {
    return Finished(app->exit(success));
  } catch (const UsageError& error) {
    return Explain(kBadInput, error.what());
  } catch (const BundleError& error) {
    return Explain(kBadBundle, error.what());
  } catch (const std::exception& error) {
    return Explain(kFailed, ReasonOf(error));
  }
}

int Main(int argc, char** argv) {
  try {
    return PerformOrExplain(argc, argv);
  } catch (const std::exception& error) {  // there was not even the memory to explain it
    Report(ReasonOf(error));
    return kFailed;
  }
}

// Descriptors that are missing would be taken by files and sockets, and these for the standard streams. What is printed
// on a standard output that is missing is lost, which shows as it does with one that is full.
void OpenStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0) open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  OpenStandardStreams();
  // What cannot be written is reported like any other failure.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const int status = Main(argc, argv);
  if (!IsAnythingInBackground()) return status;
  std::fflush(nullptr);
  std::_Exit(status);
}
