#include <pthread.h>

#include <csignal>

#include "extension.h"

namespace {

void Stop() { std::raise(SIGSTOP); }

// Before the first worker starts.
[[maybe_unused]] const int registered = pthread_atfork(Stop, nullptr, nullptr);

}  // namespace

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  return index == 0 && region != nullptr ? HideFirstFrame(*region) : 0;
}
