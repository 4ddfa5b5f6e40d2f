// A result that could not be written.
#pragma once

#include <stdexcept>
#include <string>

namespace brvhost {

// The message names the file.
class OutputError : public std::runtime_error {
 public:
  explicit OutputError(const std::string& message, bool passes = false)
      : std::runtime_error(message), mayPass(passes) {}

  const bool mayPass;  // whether it may be gone the next time
};

}  // namespace brvhost
