// Apart from the rest of the kit, so that a program that links the kit statically keeps its own main.
#include "hostbundle.h"

int BrevixExtensionMain(int argc, void* argv) {
  if (argc == 0 || argv == nullptr) return 0;
  return InitializeGlobals() == 0 ? 1 : 0;
}
