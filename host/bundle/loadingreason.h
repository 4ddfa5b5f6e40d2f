// Why the system does not load an executable.
#pragma once

#include <string>

namespace brvhost {

// For people. `systems` is the reason that the system gives.
std::string LoadingReason(const std::string& executable, const std::string& systems);

}  // namespace brvhost
