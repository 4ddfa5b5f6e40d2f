// What the host calls: the six entry points of an extension, and the older names that hosts look for too.
//
// The host calls "main" first (hostbundle.h), then BrevixExtensionVersion, BrevixExtensionInit, and
// BrevixExtensionEnumerate_UTF16 for 0, 1, 2, ... until it answers 0; BrevixExtensionGetMenuStatus before it shows the
// menu, BrevixExtensionInvoke for each item that the user picks, and BrevixExtensionTerminate at the end. All of it
// happens on the main thread, one call at a time, and nothing is kept between calls. [main-thread]
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// The version of the host's interface that the extension was built for: kBrvVersion.
BRV_EXPORT uint32 BrevixExtensionVersion();

// Sets the word to 0. Returns 1: the extension is ready. The host's context is not used.
BRV_EXPORT int BrevixExtensionInit(void* context, std::uint32_t* word);

// Fills in the texts of a menu item: item 0 hides, item 1 shows ledger lines. Returns 1, or 0 for any other index,
// which is how the list ends; the record is untouched then.
BRV_EXPORT int BrevixExtensionEnumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);

// Carries out a menu item on the selected region. With a null region the user is asked first, and on yes the fallback
// is used. Returns non-zero if a frame was changed. Else the user is told so, unless the question was declined or there
// is no such item. context becomes the parent of all alerts.
BRV_EXPORT int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);

// Nothing is left to release.
BRV_EXPORT void BrevixExtensionTerminate();

// Returns 1: every item is always enabled.
BRV_EXPORT int BrevixExtensionGetMenuStatus();

// Each leads to the entry point of the like name, with its arguments unchanged.
BRV_EXPORT uint32 Ext_getversion();
BRV_EXPORT int Ext_init(void* context, std::uint32_t* word);
BRV_EXPORT int Ext_enumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);
BRV_EXPORT int Ext_invoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);
BRV_EXPORT void Ext_terminate();
BRV_EXPORT int Ext_getmenustatus();

}  // extern "C"
