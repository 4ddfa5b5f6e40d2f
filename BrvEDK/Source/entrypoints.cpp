// What every extension has besides its own entry points: main, and the older names of the entry points. It is separate
// from the rest of the kit, so that a program that links the kit statically keeps its own main.
#include <cstdint>

#include "convention.h"
#include "hostbundle.h"

int BrevixExtensionMain(int argc, void* argv) {
  if (argc == 0 || argv == nullptr) return 0;
  return InitializeGlobals() == 0 ? 1 : 0;
}

uint32 Ext_getversion() { return BrevixExtensionVersion(); }

int Ext_init(void* context, std::uint32_t* word) { return BrevixExtensionInit(context, word); }

int Ext_enumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts) {
  return BrevixExtensionEnumerate_UTF16(context, itemIndex, texts);
}

int Ext_invoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback) {
  return BrevixExtensionInvoke(context, itemIndex, region, fallback);
}

void Ext_terminate() { BrevixExtensionTerminate(); }

int Ext_getmenustatus() { return BrevixExtensionGetMenuStatus(); }
