#include "host/check/isolated.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <new>
#include <random>
#include <string_view>
#include <system_error>

#include "host/process/child.h"
#include "host/process/deadline.h"
#include "host/process/descriptor.h"
#include "host/process/guardedchild.h"
#include "host/process/interrupt.h"
#include "host/process/memoryshortage.h"
#include "host/process/silence.h"
#include "host/process/whereabouts.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

// What a pipe holds without a reader.
constexpr std::size_t kMaxText = 4000;

// Follows the text, so that a process that ends early cannot pass for one that had nothing to report, whatever it
// writes.
std::string NewMark() { return fmt::format("/{:08x}", std::random_device()()); }

void WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

int Work(const std::function<std::string()>& work, int descriptor, const std::string& mark, Whereabouts& whereabouts) {
  SilenceStreams();
  ReportWhereaboutsTo(whereabouts);
  try {
    const std::string text = WithEnoughMemory(work);
    WriteAll(descriptor, std::string_view(text).substr(0, kMaxText));
  } catch (const std::bad_alloc&) {
    WriteAll(descriptor, kNoMemory);
  }
  WriteAll(descriptor, mark);
  return 0;
}

// All that has been written, by a process that has ended.
std::string TextIn(int descriptor) {
  fcntl(descriptor, F_SETFL, O_NONBLOCK);  // something that the process started may hold the other end
  std::string text;
  char buffer[1024];
  for (ssize_t count; (count = read(descriptor, buffer, sizeof(buffer))) > 0;) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  return text;
}

bool EndsBefore(const Deadline& deadline, const GuardedChild& child) {
  while (!deadline.HasPassed()) {
    if (child.WaitForEnd(deadline.LeftMs(kMaxWaitMs))) return true;
  }
  return false;
}

std::string Ending(int status, const std::string& where) {
  // Outside of the extension the work comes to its end, and what it returned is lost.
  if (status == 0 && where.empty()) return "closes the connection to brvhost";
  return fmt::format("{}{}: {}", WIFSIGNALED(status) ? "crashes" : "ends the process", where, EndingOf(status));
}

}  // namespace

IsolatedResult RunIsolated(const std::function<std::string()>& work, int seconds) {
  int ends[2];
  if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  const Descriptor from(ends[0]);
  Descriptor to(ends[1]);
  const SharedWhereabouts whereabouts(1);
  const std::string mark = NewMark();
  GuardedChild child([&] { return Work(work, to.Get(), mark, whereabouts[0]); });
  to = {};
  const bool hasEnded = EndsBefore(Deadline(seconds), child);
  const auto status = hasEnded ? child.Wait() : child.KillAndWait();
  const std::string where = Describe(whereabouts[0]);
  if (!hasEnded) return {fmt::format("does not return{} within {}", where, SecondsText(seconds))};
  const std::string text = TextIn(from.Get());
  if (text.ends_with(mark)) return {text.substr(0, text.size() - mark.size()), true};
  return {status ? Ending(*status, where) : fmt::format("loses its guard{}, and is killed", where)};
}

}  // namespace brvhost
