// How much memory this process has that only it can see: what RLIMIT_DATA limits.
#pragma once

#include <cstdint>

namespace brvhost {

std::uint64_t DataSize();

}  // namespace brvhost
