// How much can be done at the same time.
#pragma once

#include <algorithm>
#include <thread>

namespace brvhost {

// The processors that this process may use, at least 1.
inline int Processors() { return std::max(1, static_cast<int>(std::thread::hardware_concurrency())); }

}  // namespace brvhost
