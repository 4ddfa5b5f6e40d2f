#include <cstdlib>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index == 0 && region != nullptr) std::abort();
  return 0;
}
