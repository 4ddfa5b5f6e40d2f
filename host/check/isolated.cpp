#include "host/check/isolated.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <system_error>

#include "host/process/child.h"
#include "host/process/descriptor.h"

namespace brvhost {
namespace {

// Follows the text, so that a process that ends early cannot pass for one that had nothing to report.
constexpr char kWhole = '\n';

void Silence() {
  const Descriptor nowhere(open("/dev/null", O_RDWR));
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere.Get(), stream);
}

int Work(const std::function<std::string()>& work, int descriptor) {
  Silence();
  const std::string text = work() + kWhole;
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0) break;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

// All that comes until the end; false when the end does not come in time.
bool ReadUntil(int descriptor, std::chrono::steady_clock::time_point deadline, std::string& text) {
  for (;;) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd waiting{descriptor, POLLIN, 0};
    if (poll(&waiting, 1, static_cast<int>(left.count())) <= 0) continue;
    char buffer[1024];
    const ssize_t count = read(descriptor, buffer, sizeof(buffer));
    if (count == 0) return true;
    if (count > 0) text.append(buffer, static_cast<std::size_t>(count));
  }
}

std::string Ending(int status) {
  if (WIFSIGNALED(status)) return fmt::format("crashes: signal {} ({})", WTERMSIG(status), strsignal(WTERMSIG(status)));
  return fmt::format("ends the process, with status {}", WEXITSTATUS(status));
}

}  // namespace

std::string RunIsolated(const std::function<std::string()>& work, int seconds) {
  int ends[2];
  if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  const Descriptor from(ends[0]);
  Descriptor to(ends[1]);
  const pid_t process = StartChild([&] { return Work(work, to.Get()); });
  to = {};
  std::string text;
  const bool ended = ReadUntil(from.Get(), std::chrono::steady_clock::now() + std::chrono::seconds(seconds), text);
  if (!ended) kill(process, SIGKILL);
  const int status = WaitForChild(process);
  if (!ended) return fmt::format("does not return within {} seconds", seconds);
  if (text.ends_with(kWhole)) return text.substr(0, text.size() - 1);
  return Ending(status);
}

}  // namespace brvhost
