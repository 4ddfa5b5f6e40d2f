// Prints the program's documentation, which follows from its command line: brvhost-docs man, bash or zsh.
#include <fmt/format.h>

#include <cstdio>
#include <string_view>

#include "host/commands/commandline.h"
#include "host/commands/options.h"
#include "host/documentation/completions.h"
#include "host/documentation/manualpage.h"

int main(int argc, char** argv) {
  brvhost::Options options;
  const auto app = brvhost::DescribeCommandLine(options);
  const std::string_view wanted = argc == 2 ? argv[1] : "";
  if (wanted == "man") {
    fmt::print("{}", brvhost::ManualPage(*app));
  } else if (wanted == "bash") {
    fmt::print("{}", brvhost::BashCompletion(*app));
  } else if (wanted == "zsh") {
    fmt::print("{}", brvhost::ZshCompletion(*app));
  } else {
    fmt::print(stderr, "usage: brvhost-docs man|bash|zsh\n");
    return 2;
  }
  return 0;
}
