// A point in time until which something has to be done.
#pragma once

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

namespace brvhost {

// "1 second", "10 seconds".
inline std::string SecondsText(int seconds) {
  return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

class Deadline {
 public:
  // Never passes.
  Deadline() = default;
  // Passes in that many seconds from now; never when null.
  explicit Deadline(std::optional<int> seconds) {
    if (seconds) time_ = Clock::now() + std::chrono::seconds(*seconds);
  }

  // Gives more time.
  void Extend(std::chrono::steady_clock::duration more) {
    if (time_) *time_ += more;
  }

  bool HasPassed() const { return time_ && Clock::now() >= *time_; }
  // The milliseconds that are left, from 0 to `most`.
  int LeftMs(int most) const {
    if (!time_) return most;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*time_ - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, most));
  }

 private:
  using Clock = std::chrono::steady_clock;

  std::optional<Clock::time_point> time_;
};

}  // namespace brvhost
