#include "host/commands/tracefile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "host/calls/interception.h"
#include "host/commands/usageerror.h"
#include "host/files/outputerror.h"
#include "host/files/standardstreams.h"

namespace brvhost {
namespace {

constexpr mode_t kAnyoneMayReadAndWrite = 0666;  // as far as the user's mask lets them

int Open(const Options& options) {
  if (TracesToTerminal(options)) return fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
  // Several processes write to it, each at its end.
  return open(options.trace.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, kAnyoneMayReadAndWrite);
}

}  // namespace

Descriptor OpenTrace(const Options& options) {
  if (options.trace.empty() && options.traceTimes) throw UsageError("--trace-times: is for --trace");
  if (options.trace.empty()) return {};
  if (!CallsCanBeHeard()) throw UsageError("--trace: this system does not let a host hear of an extension's calls");
  Descriptor file(Open(options));
  if (file) return file;
  const std::string name = TracesToTerminal(options) ? "the standard error" : options.trace;
  throw OutputError(name + ": cannot be written: " + std::generic_category().message(errno));
}

bool TracesToTerminal(const Options& options) { return options.trace == kStandardStream; }

}  // namespace brvhost
