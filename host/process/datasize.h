// How many bytes of memory this process has that nobody else can see: what RLIMIT_DATA limits.
#pragma once

#include <cstdint>

namespace brvhost {

std::uint64_t DataSize();

}  // namespace brvhost
