#include "host/check/remainsfacts.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <thread>
#include <vector>

#include "host/bundle/extension.h"
#include "host/check/eachitem.h"
#include "host/check/streamcapture.h"
#include "host/check/trial.h"
#include "host/process/remains.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

using Clock = std::chrono::steady_clock;

// Drives the extension from its loading to its end, and asks `check`, with where it is, after each step. Returns the
// first that it finds wrong.
std::string ForEachStep(const std::string& path, const std::function<std::string(const std::string&)>& check) {
  const Extension extension(path);
  std::string wrong = check("while it starts");
  const int count = ItemCountOf(extension);
  if (wrong.empty()) wrong = check("while its items are asked for");
  extension.MenuStatus();
  if (wrong.empty()) wrong = check("in BrevixExtensionGetMenuStatus");
  for (int item = 0; item < count && wrong.empty(); ++item) {
    Trial(extension).InvokeOnWholeScore(item);
    wrong = check(fmt::format("in item {}", item));
  }
  if (!wrong.empty()) return wrong;
  extension.Terminate();
  return check("in BrevixExtensionTerminate");
}

// A thread that has been joined may take a moment to be gone.
int ThreadsThatStay(int before) {
  constexpr auto kPatience = std::chrono::milliseconds(500);
  constexpr auto kPause = std::chrono::milliseconds(5);
  const auto end = Clock::now() + kPatience;
  int count;
  while ((count = ThreadCount()) > before && Clock::now() < end) std::this_thread::sleep_for(kPause);
  return count - before;
}

// How many there are; an extension has few.
std::uint64_t OpenDescriptors() {
  constexpr int kMost = 4096;
  std::uint64_t count = 0;
  for (int descriptor = 0; descriptor < kMost; ++descriptor) count += fcntl(descriptor, F_GETFD) >= 0 ? 1 : 0;
  return count;
}

// What an item takes of something for each invocation, at least: what it takes in each of two long series of them,
// after one in which whatever is set up once is. Fewer invocations do where an item is slow.
class Growth {
 public:
  Growth(const Extension& extension, int item, Clock::duration time) : extension_(extension), item_(item), time_(time) {
    Invoke();
  }

  double PerInvocation(std::uint64_t (*measure)()) const {
    double least = 0;
    for (int series = 0; series < 2; ++series) {
      const std::uint64_t before = measure();
      const int count = Invoke();
      const double grown = (static_cast<double>(measure()) - static_cast<double>(before)) / count;
      least = series == 0 ? grown : std::min(least, grown);
    }
    return least;
  }

 private:
  int Invoke() const {
    constexpr int kMost = 400;
    const auto end = Clock::now() + time_;
    int count = 0;
    while (count < kMost && (count == 0 || Clock::now() < end)) {
      Trial(extension_).InvokeOnWholeScore(item_);
      ++count;
    }
    return count;
  }

  const Extension& extension_;
  const int item_;
  const Clock::duration time_;
};

std::string Grows(const std::string& path, std::uint64_t (*measure)(), double most, const char* what) {
  constexpr auto kTime = std::chrono::seconds(1);
  const Extension extension(path);
  const int count = ItemCountOf(extension);
  for (int item = 0; item < count; ++item) {
    const double grown = Growth(extension, item, Clock::duration(kTime) / count).PerInvocation(measure);
    if (grown >= most) return fmt::format("item {} keeps {:.0f} {} at each invocation", item, grown, what);
  }
  return "";
}

}  // namespace

std::string EndsItsThreads(const std::string& path) {
  const int before = ThreadCount();
  return ForEachStep(path, [before](const std::string& where) -> std::string {
    const int left = ThreadsThatStay(before);
    if (left <= 0) return "";
    return fmt::format("of the threads that it starts {}, {} {} on", where, left, left == 1 ? "goes" : "go");
  });
}

std::string PrintsNothing(const std::string& path) {
  const StreamCapture output(STDOUT_FILENO);
  const StreamCapture errors(STDERR_FILENO);
  return ForEachStep(path, [&](const std::string& where) -> std::string {
    if (const std::string text = output.Take(); !text.empty()) {
      return fmt::format("it writes to the standard output {}: \"{}\"", where, Excerpt(text));
    }
    if (const std::string text = errors.Take(); !text.empty()) {
      return fmt::format("it writes to the standard error {}: \"{}\"", where, Excerpt(text));
    }
    return "";
  });
}

std::string ClosesDescriptors(const std::string& path) { return Grows(path, OpenDescriptors, 0.5, "descriptors"); }

std::string ReleasesMemory(const std::string& path) {
  constexpr double kLeast = 16;  // no allocation takes less
  return Grows(path, AllocatedBytes, kLeast, "bytes of memory");
}

}  // namespace brvhost
