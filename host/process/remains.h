// What a process has, to be compared before and after foreign code has run in it.
#pragma once

#include <cstdint>

namespace brvhost {

// Its threads, the one that asks included; 0 where the system does not tell.
int ThreadCount();

// Bytes that are allocated and not released, of the C library's memory.
std::uint64_t AllocatedBytes();

}  // namespace brvhost
