// Runs something that may crash or never return, in a process of its own.
#pragma once

#include <functional>
#include <string>

namespace brvhost {

struct IsolatedResult {
  std::string text;          // what the work returned, or how its process ended instead
  bool hasReturned = false;  // whether the work did
};

// The work has `seconds` at most, and what it prints is lost.
[[nodiscard]] IsolatedResult RunIsolated(const std::function<std::string()>& work, int seconds);

}  // namespace brvhost
