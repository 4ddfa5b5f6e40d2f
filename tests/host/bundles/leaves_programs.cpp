#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  // One that has left its group and its parent, and one that works on.
  if (fork() == 0) {
    setsid();
    if (fork() != 0) _exit(0);
    execl("/bin/sleep", "sleep", std::getenv("BRV_TEST_SECONDS"), nullptr);
    _exit(1);
  }
  if (fork() == 0) {
    std::signal(SIGTERM, SIG_IGN);
    for (;;) pause();
  }
  prctl(PR_SET_PDEATHSIG, 0);
  BX_AlertMessage(nullptr, kAlertMessage, 0, "working", kBrvVersion);
  while (std::getenv("BRV_TEST_STAY") != nullptr) pause();
  return HideFirstFrame(*region);
}
