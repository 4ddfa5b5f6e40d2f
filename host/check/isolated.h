// Runs something that may crash or never return, in a process of its own.
#pragma once

#include <functional>
#include <string>

namespace brvhost {

// What `work` returns, or how its process ended instead. It has `seconds` at most, and what it prints is lost.
[[nodiscard]] std::string RunIsolated(const std::function<std::string()>& work, int seconds);

}  // namespace brvhost
