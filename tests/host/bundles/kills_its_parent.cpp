#include <unistd.h>

#include <csignal>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  kill(getppid(), SIGKILL);
  for (;;) pause();  // which ends soon
}
