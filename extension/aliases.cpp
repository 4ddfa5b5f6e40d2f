#include "entrypoints.h"

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
