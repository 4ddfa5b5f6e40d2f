#include <unistd.h>

#include <csignal>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  sigset_t all;
  sigfillset(&all);
  sigprocmask(SIG_BLOCK, &all, nullptr);
  BX_AlertMessage(nullptr, kAlertMessage, 0, "working", kBrvVersion);
  for (;;) pause();
}
