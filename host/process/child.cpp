#include "host/process/child.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace brvhost {

pid_t StartChild(const std::function<int()>& work) {
  std::fflush(nullptr);
  const pid_t process = fork();
  if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (process != 0) return process;
  const int status = work();
  std::fflush(nullptr);
  _exit(status);
}

int WaitForChild(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  return status;
}

}  // namespace brvhost
