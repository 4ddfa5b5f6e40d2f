// The commands. Each returns the exit status, and throws what the command line's main knows to explain.
#pragma once

#include <stdexcept>

#include "host/commands/options.h"

namespace brvhost {

// The command line asks for something that cannot be. The message is for people.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

int ListItems(const Options& options);
int ShowInfo(const Options& options);
int Run(const Options& options);
int Check(const Options& options);

}  // namespace brvhost
