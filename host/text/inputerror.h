// What is wrong with a score, and where.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace brvhost {

// A place in an XML document, line and column from 1; line 0 is no particular place.
struct TextPlace {
  std::uint64_t line = 0;
  std::uint64_t column = 0;
};

// The score cannot be used. The message is for people and does not name the file: whoever knows the name puts it first.
class InputError : public std::runtime_error {
 public:
  explicit InputError(const std::string& message, TextPlace at = {}) : std::runtime_error(message), place(at) {}

  const TextPlace place;
};

// "file:line:column: message", without what is not known.
std::string Located(const std::string& file, TextPlace place, const std::string& message);

}  // namespace brvhost
