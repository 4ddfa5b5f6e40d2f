// What the host calls.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

BRV_EXPORT uint32 BrevixExtensionVersion();
BRV_EXPORT int BrevixExtensionInit(void* context, std::uint32_t* word);
BRV_EXPORT int BrevixExtensionEnumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);
BRV_EXPORT int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);
BRV_EXPORT void BrevixExtensionTerminate();
BRV_EXPORT int BrevixExtensionGetMenuStatus();

}  // extern "C"
