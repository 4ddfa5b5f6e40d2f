// The commands. Each returns the exit status, and throws what main explains to the user.
#pragma once

#include <stdexcept>

#include "host/commands/options.h"

namespace brvhost {

// The command line asks for something impossible. The message is for people.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[nodiscard]] int ListItems(const Options& options);
[[nodiscard]] int ShowInfo(const Options& options);
[[nodiscard]] int Run(const Options& options);
[[nodiscard]] int Check(const Options& options);

}  // namespace brvhost
