// Prints the program's documentation, which follows from its command line: brvhost-docs man, bash or zsh.
#include <fmt/format.h>

#include <cstdio>
#include <string_view>

#include "host/commands/commandline.h"
#include "host/commands/options.h"
#include "host/documentation/completions.h"
#include "host/documentation/manualpage.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/version/version.h"

int main(int argc, char** argv) {
  brvhost::Options options;
  const auto app = brvhost::DescribeCommandLine(options, brvhost::kVersion);
  const std::string_view wanted = argc == 2 ? argv[1] : "";
  if (wanted == "man") {
    brvhost::Print(stdout, "{}", brvhost::ManualPage(*app));
  } else if (wanted == "bash") {
    brvhost::Print(stdout, "{}", brvhost::BashCompletion(*app));
  } else if (wanted == "zsh") {
    brvhost::Print(stdout, "{}", brvhost::ZshCompletion(*app));
  } else {
    fmt::print(stderr, "usage: brvhost-docs man|bash|zsh\n");
    return brvhost::kBadInput;
  }
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return brvhost::kDone;
  fmt::print(stderr, "brvhost-docs: the standard output cannot be written\n");
  return brvhost::kFailed;
}
