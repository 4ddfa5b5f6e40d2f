#include "host/batch/timeleft.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

namespace brvhost {
namespace {

using std::chrono::milliseconds;

// Before that the first scores, which may be like no others, are all that is known.
constexpr milliseconds kKnownAfter{3000};
constexpr int kKnownOf = 5;

// A new estimate counts where it differs from the old one by more than this part of the time that is left.
constexpr int kToleratedPart = 5;

std::int64_t RoundedUp(std::int64_t number, std::int64_t step) { return (number + step - 1) / step; }

std::string TextOf(milliseconds left) {
  constexpr std::int64_t kTenSeconds = 10'000;
  constexpr std::int64_t kMinute = 60'000;
  const std::int64_t minutes = RoundedUp(left.count(), kMinute);
  if (left.count() <= 5 * kTenSeconds)
    return fmt::format("{}0 s left", std::max<std::int64_t>(RoundedUp(left.count(), kTenSeconds), 1));
  if (minutes < 60) return fmt::format("{} min left", minutes);
  return fmt::format("{} h {} min left", minutes / 60, minutes % 60);
}

}  // namespace

std::string TimeLeft::After(milliseconds elapsed, int done, int total) {
  if (elapsed < kKnownAfter || done < kKnownOf || done >= total) return "";
  const milliseconds left = elapsed * (total - done) / done;
  const milliseconds end = elapsed + left;
  if (!end_ || std::chrono::abs(end - *end_) > left / kToleratedPart) end_ = end;
  return TextOf(*end_ - elapsed);
}

}  // namespace brvhost
