#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "host/bundle/loadedbundle.h"
#include "host/check/facts.h"
#include "host/check/isolated.h"
#include "host/commands/bundleargument.h"
#include "host/commands/commands.h"
#include "host/process/confinement.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/text/printable.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

// Empty when this system can confine an extension, else why not.
std::string TryConfinement() {
  try {
    Confine();
    return "";
  } catch (const std::exception& error) {
    return ReasonOf(error);
  }
}

}  // namespace

int Check(const Options& options) {
  const std::string bundle = BundleOf(options);
  std::error_code error;
  if (!std::filesystem::is_directory(bundle, error)) {
    throw BundleError(bundle + ": there is no such bundle");
  }
  if (options.checkConfines) {
    const std::string wrong = RunIsolated(TryConfinement, options.factTimeout);
    if (!wrong.empty()) throw std::runtime_error(wrong + "; --no-confine checks it all the same");
  }
  int status = kDone;
  for (const Fact& fact : FactsAbout(bundle)) {
    const auto check = [&] {
      if (options.checkConfines) Confine();
      return fact.check();
    };
    const std::string wrong = RunIsolated(check, options.factTimeout);
    Print(stdout, "{}  {}{}\n", wrong.empty() ? "ok    " : "FAILED", fact.name,
          wrong.empty() ? "" : ": " + Printable(wrong));
    std::fflush(stdout);
    if (wrong.empty()) continue;
    status = kFailed;
    if (!fact.othersNeedIt) continue;
    Print(stdout, "        the other facts need this one\n");
    break;
  }
  return status;
}

}  // namespace brvhost
