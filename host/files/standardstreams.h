// The name that stands for the standard input and the standard output.
#pragma once

#include <string>

namespace brvhost {

inline constexpr const char* kStandardStream = "-";

// The name of a score for people.
inline std::string InputName(const std::string& score) {
  return score == kStandardStream ? "the standard input" : score;
}

inline std::string OutputName(const std::string& target) {
  return target == kStandardStream ? "the standard output" : target;
}

}  // namespace brvhost
