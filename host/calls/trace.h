// Writes each call between host and extension to a file, as a line, when it has returned; calls of entry points have a
// line before it, too, since host functions are called in them.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "host/bundle/entrypointlistener.h"
#include "host/calls/calltexts.h"
#include "host/calls/interception.h"
#include "host/process/descriptor.h"

namespace brvhost {

// One process writes a line at once, so that others may write to the same file. Where a line cannot be written, the
// open session fails.
class Trace final : public Interceptor, public EntryPointListener {
 public:
  // For the rest of the process's life, which the trace lasts. Throws std::runtime_error where calls cannot be heard.
  Trace(Descriptor file, bool withTimes);
  ~Trace() override;

  // From now on each line begins with that.
  void Label(const std::string& label) { label_ = label; }
  // What follows is about this.
  void Begin(const std::string& title);

  void Miss(const HostFunction& function) override;
  std::optional<Register> Before(const InterceptedCall& call) override;
  void After(const InterceptedCall& call, Register& result) override;
  void Enter(const char* entryPoint, std::span<const EntryPointArgument> arguments) override;
  void Leave(const char* entryPoint, std::span<const EntryPointArgument> arguments,
             const EntryPointValue* result) override;
  void Throw(const std::string& what) override;

 private:
  using Clock = std::chrono::steady_clock;

  void Write(const std::string& text) const;
  // "  (12.3 us)", or nothing.
  std::string TimeSince(Clock::time_point start) const;

  const Descriptor file_;
  const bool withTimes_;
  std::string label_;
  int depth_ = 0;
  CallTexts texts_;
  std::string call_;  // that has not returned yet
  Clock::time_point callStart_;
  Clock::time_point entryStart_;
  const Interception interception_{*this};
};

}  // namespace brvhost
