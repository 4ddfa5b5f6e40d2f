// An extension without faults, every entry point of which a faulty one can replace: those here are weak.
#pragma once

#include "brevixpdk.h"

extern "C" {

BRV_EXPORT std::uint32_t BrevixExtensionVersion();
BRV_EXPORT int BrevixExtensionInit(void* context, std::uint32_t* word);
BRV_EXPORT int BrevixExtensionEnumerate_UTF16(void* context, int index, MenuItemTexts* texts);
BRV_EXPORT int BrevixExtensionInvoke(void* context, int index, EREGION* region, EREGION* fallback);
BRV_EXPORT void BrevixExtensionTerminate();
BRV_EXPORT int BrevixExtensionGetMenuStatus(void* context);

}  // extern "C"

// What the one item of the extension without faults does with a region: hides the ledger lines of its first frame.
int HideFirstFrame(const EREGION& region);

// The texts "item", "item", "item".
void FillTexts(MenuItemTexts& texts);
