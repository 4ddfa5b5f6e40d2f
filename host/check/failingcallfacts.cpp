#include "host/check/failingcallfacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "host/bundle/extension.h"
#include "host/calls/interception.h"
#include "host/check/balance.h"
#include "host/check/failingcall.h"
#include "host/check/trial.h"

namespace brvhost {
namespace {

// A run with more calls has these of it fail.
constexpr std::size_t kMaxCalls = 1000;

// Counts calls from 1, and lets some fail, which is to return 0.
class FailingCalls final : public Interceptor {
 public:
  // From now on: counts anew. None fails with a first of 0.
  void Fail(std::size_t first, bool andAllAfter) {
    count_ = 0;
    first_ = first;
    andAllAfter_ = andAllAfter;
    name_ = "";
  }

  std::size_t Count() const { return count_; }
  // Of the first that failed.
  const char* Name() const { return name_; }

  std::optional<Register> Before(const InterceptedCall& call) override {
    ++count_;
    if (count_ == first_) name_ = call.function.name;
    if (!Fails() || WorksThoughItFails(call.function.name)) return std::nullopt;
    return 0;
  }

  void After(const InterceptedCall&, Register& result) override {
    if (Fails()) result = 0;
  }

 private:
  bool Fails() const { return first_ != 0 && (count_ == first_ || (andAllAfter_ && count_ > first_)); }

  std::size_t count_ = 0;
  std::size_t first_ = 0;
  bool andAllAfter_ = false;
  const char* name_ = "";
};

// What the item has left behind, or nothing.
std::string Disorder(Trial& trial, int item) {
  trial.InvokeOnWholeScore(item);
  const std::string frames = LeftFrames(trial, item);
  return frames.empty() ? LeftOpen(trial, item) : frames;
}

std::string DisorderOfItem(const Extension& extension, int item, FailingCalls& calls, bool andAllAfter) {
  const auto disorder = [&](std::size_t first) {
    Trial trial(extension);
    calls.Fail(first, andAllAfter);
    return Disorder(trial, item);
  };
  if (!disorder(0).empty()) return "";
  const std::size_t count = std::min(calls.Count(), kMaxCalls);
  for (std::size_t first = 1; first <= count; ++first) {
    const std::string wrong = disorder(first);
    if (wrong.empty()) continue;
    return fmt::format("{}, where call {} fails ({}){}", wrong, first, calls.Name(),
                       andAllAfter ? ", and all after it" : "");
  }
  return "";
}

std::string DisorderOfItems(const std::string& path, bool andAllAfter) {
  FailingCalls calls;
  const Interception interception(calls);
  const Extension extension(path);
  const int items = static_cast<int>(extension.Items().size());
  for (int item = 0; item < items; ++item) {
    if (std::string wrong = DisorderOfItem(extension, item, calls, andAllAfter); !wrong.empty()) return wrong;
  }
  return "";
}

}  // namespace

std::string EndsInOrderWhereACallFails(const std::string& path) { return DisorderOfItems(path, false); }

std::string EndsInOrderWhereAllCallsFailFromOneOn(const std::string& path) { return DisorderOfItems(path, true); }

}  // namespace brvhost
