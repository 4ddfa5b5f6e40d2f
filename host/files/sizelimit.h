// How many bytes a pipe may bring, and how many the score in an archive may unpack to.
#pragma once

#include <cstdint>

namespace brvhost {

inline constexpr std::uint64_t kDefaultMaxSize = std::uint64_t{1} << 30;
// The largest limit that the user may set.
inline constexpr std::uint64_t kMaxSizeLimit = std::uint64_t{1} << 50;

}  // namespace brvhost
