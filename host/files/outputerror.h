// A result that could not be written.
#pragma once

#include <stdexcept>

namespace brvhost {

// The message names the file.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace brvhost
