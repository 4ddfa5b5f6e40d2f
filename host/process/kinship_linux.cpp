#include "host/process/kinship.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <string_view>
#include <utility>

#include "host/process/descriptor.h"
#include "host/process/exitstatus.h"

namespace brvhost {

void DieWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(kFailed);  // it ended before
}

void AdoptOrphans() { prctl(PR_SET_CHILD_SUBREAPER, 1); }

void ForEachChild(const std::function<void(pid_t)>& work) {
  const Descriptor list(open("/proc/thread-self/children", O_RDONLY | O_CLOEXEC));
  char buffer[512];
  pid_t child = 0;
  for (ssize_t count; (count = read(list.Get(), buffer, sizeof(buffer))) > 0;) {
    for (const char digit : std::string_view(buffer, static_cast<std::size_t>(count))) {
      if (digit != ' ') {
        child = child * 10 + (digit - '0');
      } else {  // it follows each number
        work(std::exchange(child, 0));
      }
    }
  }
}

}  // namespace brvhost
