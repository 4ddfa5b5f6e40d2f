// A region's record that shows whether anything was written beside it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

// The extension may write to the record itself.
class FencedRegion {
 public:
  explicit FencedRegion(const EREGION& region) : region_(region) {
    before_.fill(kByte);
    after_.fill(kByte);
  }

  EREGION* Record() { return &region_; }
  bool IsFenceWhole() const { return IsWhole(before_) && IsWhole(after_); }

 private:
  static constexpr std::uint8_t kByte = 0xA5;
  using Fence = std::array<std::uint8_t, 64>;

  static bool IsWhole(const Fence& fence) {
    return std::ranges::all_of(fence, [](std::uint8_t byte) { return byte == kByte; });
  }

  Fence before_;
  EREGION region_;
  Fence after_;
};

}  // namespace brvhost
