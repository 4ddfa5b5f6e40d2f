#include "host/check/checker.h"

#include <fmt/format.h>

#include <chrono>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "host/check/isolated.h"
#include "host/process/confinement.h"
#include "host/text/reason.h"
#include "host/text/shellword.h"

namespace brvhost {
namespace {

// Empty when this system can confine an extension, else why not.
std::string TryConfinement() {
  try {
    Confine();
    return "";
  } catch (const std::exception& error) {
    return ReasonOf(error);
  }
}

IsolatedResult Check(const Fact& fact, const Subject& subject, const CheckSettings& settings) {
  const auto work = [&] {
    if (settings.confines && !settings.inProcess) Confine();
    if (settings.trace != nullptr) settings.trace->Begin(fact.name);
    return WrongWith(fact, subject);
  };
  return settings.inProcess ? IsolatedResult{work(), true} : RunIsolated(work, settings.seconds);
}

FactResult ResultOf(const Fact& fact, const Subject& subject, const CheckSettings& settings) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  IsolatedResult checked = Check(fact, subject, settings);
  FactResult result;
  result.fact = &fact;
  result.duration = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  if (!checked.text.empty()) result.outcome = OutcomeOf(fact.severity);
  if (!checked.hasReturned) {
    result.reproduce = fmt::format("brvhost check {} --in-process --include {}", ShellWord(subject.path), fact.name);
  }
  result.message = std::move(checked.text);
  return result;
}

FactResult Skipped(const Fact& fact, const Fact& missing) {
  return {&fact, Outcome::kSkipped, fmt::format("needs {}", missing.name), "", {}};
}

}  // namespace

void ExpectConfinement(const CheckSettings& settings) {
  if (!settings.confines || settings.inProcess) return;
  const std::string wrong = RunIsolated(TryConfinement, settings.seconds).text;
  if (!wrong.empty()) throw std::runtime_error(wrong + "; --no-confine checks it all the same");
}

BundleResults CheckBundle(const Subject& subject, const std::vector<const Fact*>& facts, const CheckSettings& settings,
                          const std::function<void(const FactResult&)>& report) {
  BundleResults results{subject.path, {}};
  const Fact* missing = nullptr;
  for (const Fact* const fact : facts) {
    FactResult result = missing == nullptr || fact->kind == FactKind::kFiles ? ResultOf(*fact, subject, settings)
                                                                             : Skipped(*fact, *missing);
    report(result);
    if (result.outcome == Outcome::kError && fact->kind == FactKind::kStart) missing = fact;
    results.facts.push_back(std::move(result));
  }
  return results;
}

}  // namespace brvhost
