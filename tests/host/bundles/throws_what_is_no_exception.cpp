#include "extension.h"

namespace {

struct Odd {};

}  // namespace

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  throw Odd();
}
