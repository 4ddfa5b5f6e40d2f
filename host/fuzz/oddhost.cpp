#include "host/fuzz/oddhost.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <vector>

#include "host/check/failingcall.h"
#include "host/process/cancelkeys.h"

namespace brvhost {
namespace {

// A call is numbered up to 2 to the power of this: most rounds have no more.
constexpr int kCallBits = 8;

// Of 16-bit results: all that are not 0 mean the same.
bool IsSuccessAnyNumber(std::string_view name) {
  constexpr std::string_view kNames[] = {"BX_SaveTGF", "BX_GetShowLayer", "BX_IsMachO"};
  return std::ranges::find(kNames, name) != std::end(kNames);
}

const std::vector<const char*>& ServedFunctions() {
  static const auto names = [] {
    std::vector<const char*> served;
    for (const HostFunction& function : HostFunctions()) {
      if (function.own != nullptr) served.push_back(function.name);
    }
    return served;
  }();
  return names;
}

}  // namespace

void OddHost::Plan(RandomNumbers random) {
  constexpr Failing kFailing[] = {Failing::kNone,         Failing::kNone,        Failing::kNone,
                                  Failing::kNone,         Failing::kOne,         Failing::kOne,
                                  Failing::kAllFromOneOn, Failing::kOneFunction, Failing::kSome};
  random_ = random;
  failing_ = random_.OneOf(kFailing);
  first_ = random_.Small(kCallBits);
  const auto& served = ServedFunctions();
  function_ = served[static_cast<std::size_t>(random_.Below(static_cast<int>(served.size())))];
  oneIn_ = random_.Between(2, 16);
  cancels_.reset();
  if (random_.OneIn(4)) cancels_ = random_.Small(kCallBits) - 1;
  hasOddSuccess_ = random_.OneIn(2);
}

void OddHost::Start() {
  calls_ = 0;
  isOn_ = true;
  if (cancels_ == 0) HoldCancelKeys();
}

void OddHost::Stop() {
  isOn_ = false;
  ReleaseCancelKeys();
}

std::string OddHost::Description() const {
  std::string text;
  switch (failing_) {
    case Failing::kNone:
      text = "no call fails";
      break;
    case Failing::kOne:
      text = fmt::format("call {} fails", first_);
      break;
    case Failing::kAllFromOneOn:
      text = fmt::format("call {} fails, and all after it", first_);
      break;
    case Failing::kOneFunction:
      text = fmt::format("each call of {} fails", function_);
      break;
    case Failing::kSome:
      text = fmt::format("one in {} calls fails", oneIn_);
      break;
  }
  if (cancels_ == 0) return text + "; the user cancels from the start on";
  return cancels_ ? fmt::format("{}; the user cancels from call {} on", text, *cancels_) : text;
}

bool OddHost::Fails(const InterceptedCall& call) {
  switch (failing_) {
    case Failing::kOne:
      return calls_ == first_;
    case Failing::kAllFromOneOn:
      return calls_ >= first_;
    case Failing::kOneFunction:
      return std::string_view(function_) == call.function.name;
    case Failing::kSome:
      return random_.OneIn(oneIn_);
    default:
      return false;
  }
}

std::optional<Register> OddHost::Before(const InterceptedCall& call) {
  if (!isOn_) return std::nullopt;
  ++calls_;
  if (calls_ == cancels_) HoldCancelKeys();
  thisFails_ = Fails(call);
  if (!thisFails_ || WorksThoughItFails(call.function.name)) return std::nullopt;
  return 0;
}

void OddHost::After(const InterceptedCall& call, Register& result) {
  if (!isOn_) return;
  if (thisFails_) {
    result = 0;
  } else if (hasOddSuccess_ && call.function.result == ValueKind::kShort16) {
    constexpr Register kSuccesses[] = {1, 2, 0x100, 0xFFFF};
    if (result != 0 && IsSuccessAnyNumber(call.function.name)) result = random_.OneOf(kSuccesses);
    result = (result & 0xFFFF) | (random_.Next() & ~Register{0xFFFF});
  }
}

}  // namespace brvhost
