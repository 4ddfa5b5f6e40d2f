// The processor whose images run in this process.
#pragma once

#include "machoformat.h"

namespace macho {

#if defined(__x86_64__)
inline constexpr std::uint32_t kOwnCpuType = CPU_TYPE_X86_64;
#elif defined(__aarch64__)
inline constexpr std::uint32_t kOwnCpuType = CPU_TYPE_ARM64;
#else
#error "Macs have no such processor"
#endif

}  // namespace macho
