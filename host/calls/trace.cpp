#include "host/calls/trace.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/services/session.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

Trace::Trace(Descriptor file, bool withTimes) : file_(std::move(file)), withTimes_(withTimes) {
  ListenToEntryPoints(this);
}

Trace::~Trace() { ListenToEntryPoints(nullptr); }

void Trace::Begin(const std::string& title) {
  depth_ = 0;
  Write(title);
  depth_ = 1;
}

void Trace::Write(const std::string& text) const {
  const std::string line = fmt::format("{}{:{}}{}\n", label_, "", 2 * depth_, text);
  if (WriteAll(file_.Get(), line)) return;
  const std::string reason = std::generic_category().message(errno);
  Session* const session = Session::Current();
  if (session == nullptr) return;
  session->KeepFailure(std::make_exception_ptr(std::runtime_error("the trace cannot be written: " + reason)));
}

std::string Trace::TimeSince(Clock::time_point start) const {
  if (!withTimes_) return "";
  const std::chrono::duration<double, std::micro> time = Clock::now() - start;
  return fmt::format("  ({:.1f} us)", time.count());
}

void Trace::Miss(const HostFunction& function) {
  const std::string answer =
      function.result == ValueKind::kNothing ? "nothing" : "its default " + std::to_string(function.defaultResult);
  Write(fmt::format("{}: brvhost does not have it, and each call returns {}", function.name, answer));
}

std::optional<Register> Trace::Before(const InterceptedCall& call) {
  call_ = texts_.TextOf(call);
  callStart_ = Clock::now();
  return std::nullopt;
}

void Trace::After(const InterceptedCall& call, Register& result) {
  const std::string time = TimeSince(callStart_);
  Write(call_ + texts_.OutcomeOf(call, result) + time);
}

void Trace::Enter(const char* entryPoint, std::span<const EntryPointArgument> arguments) {
  Write(TextOfEntry(entryPoint, arguments));
  ++depth_;
  entryStart_ = Clock::now();
}

void Trace::Leave(const char* entryPoint, std::span<const EntryPointArgument> arguments,
                  const EntryPointValue* result) {
  const std::string time = TimeSince(entryStart_);
  --depth_;
  Write(entryPoint + (result == nullptr ? " returned" : OutcomeOfEntry(arguments, result)) + time);
}

void Trace::Throw(const std::string& what) {
  --depth_;
  Write(Printable(what));
}

}  // namespace brvhost
