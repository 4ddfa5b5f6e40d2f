#include "host/process/kinship.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "host/process/exitstatus.h"

namespace brvhost {

void DieWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(kFailed);  // it ended before
}

void AdoptOrphans() { prctl(PR_SET_CHILD_SUBREAPER, 1); }

std::vector<pid_t> Children() {
  std::ifstream list("/proc/thread-self/children");
  std::vector<pid_t> children;
  for (pid_t child; list >> child;) children.push_back(child);
  return children;
}

}  // namespace brvhost
