#include <unistd.h>

#include <thread>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  std::thread([] { pause(); }).detach();
  return HideFirstFrame(*region);
}
