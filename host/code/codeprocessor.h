// The processors that code is for.
#pragma once

#include <cstdint>

namespace brvhost {

enum class CodeProcessor { kX64, kArm64, kOther };

// By the number that files for macOS have for it.
constexpr CodeProcessor ProcessorOfMac(std::uint32_t type) {
  if (type == 0x01000007) return CodeProcessor::kX64;
  return type == 0x0100000C ? CodeProcessor::kArm64 : CodeProcessor::kOther;
}

}  // namespace brvhost
