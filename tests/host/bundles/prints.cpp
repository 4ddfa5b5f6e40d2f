#include <unistd.h>

#include <cstdio>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  std::puts("one\x1b[31m line\ttwo");
  std::fputs("and an error\n", stderr);
  std::fputs("no end", stdout);
  return HideFirstFrame(*region);
}
