// A host in which calls fail and the user cancels, as a host may.
#pragma once

#include <optional>
#include <string>

#include "host/calls/interception.h"
#include "host/fuzz/randomnumbers.h"

namespace brvhost {

// Between Start and Stop, which are a round, it fails calls and changes results, as it was planned.
class OddHost final : public Interceptor {
 public:
  // Throws std::runtime_error where calls cannot be heard.
  OddHost() : interception_(*this) {}

  // For the next round.
  void Plan(RandomNumbers random);
  void Start();
  void Stop();
  // What is odd in the round, as clauses for people: "call 3 fails; the user cancels from call 7 on".
  std::string Description() const;

  std::optional<Register> Before(const InterceptedCall& call) override;
  void After(const InterceptedCall& call, Register& result) override;

 private:
  enum class Failing { kNone, kOne, kAllFromOneOn, kOneFunction, kSome };

  bool Fails(const InterceptedCall& call);

  RandomNumbers random_{0};
  bool isOn_ = false;
  Failing failing_ = Failing::kNone;
  int first_ = 0;               // the call that fails, or is the first to do so, from 1
  const char* function_ = "";   // whose calls all fail
  int oneIn_ = 1;               // how many calls there are to one that fails
  std::optional<int> cancels_;  // from this call on; 0: from the start
  bool hasOddSuccess_ = false;  // success is any number that means it, with anything in bits that do not count
  int calls_ = 0;
  bool thisFails_ = false;
  const Interception interception_;
};

}  // namespace brvhost
