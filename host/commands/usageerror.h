// That the command line asks for something impossible.
#pragma once

#include <stdexcept>

namespace brvhost {

// The message is for people.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace brvhost
