#include <cstdlib>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index == 0 && region != nullptr && BX_CountParts(kBrvVersion) < 0) std::abort();
  return 0;
}
