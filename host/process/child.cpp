#include "host/process/child.h"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>

#include "host/process/exitstatus.h"

namespace brvhost {
namespace {

// What the work throws must not reach what the parent would have done with it.
int Finished(const std::function<int()>& work) {
  try {
    const int status = work();
    std::fflush(nullptr);
    return status;
  } catch (...) {
    return kFailed;
  }
}

}  // namespace

pid_t StartChild(const std::function<int()>& work) {
  std::fflush(nullptr);
  const pid_t process = fork();
  if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (process != 0) return process;
  _exit(Finished(work));
}

int WaitForChild(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  return status;
}

std::string EndingOf(int status) {
  if (!WIFSIGNALED(status)) return fmt::format("status {}", WEXITSTATUS(status));
  return fmt::format("signal {} ({})", WTERMSIG(status), strsignal(WTERMSIG(status)));
}

}  // namespace brvhost
