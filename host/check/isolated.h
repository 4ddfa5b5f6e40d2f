// Runs something that may crash or never return, in a process of its own.
#pragma once

#include <functional>
#include <string>

namespace brvhost {

// What `work` returns, or how its process ended instead. What it prints is lost. At most `seconds` long.
std::string RunIsolated(const std::function<std::string()>& work, int seconds);

}  // namespace brvhost
