// The calling convention between a host and its extensions: what a host calls, in which order, and the meaning of the
// numbers that both sides use. The calls in the other direction are in brevixpdk.h.
//
// An extension defines the six entry points; the kit defines main and the older names. The host calls "main" first,
// then BrevixExtensionVersion, BrevixExtensionInit, and BrevixExtensionEnumerate_UTF16 for 0, 1, 2, ... until it
// returns 0; BrevixExtensionGetMenuStatus before it shows the menu, BrevixExtensionInvoke for each item that the user
// chooses, and BrevixExtensionTerminate at the end. All calls are on the main thread, one at a time. [main-thread]
//
// Results other than a version are 16-bit: 1 is success, 0 failure, unless the comment says otherwise. Of an index,
// only the low 16 bits count.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

// Its argument as a literal, as it is written or once the macros in it are expanded.
#define BRV_TEXT_OF(prefix) #prefix
#define BRV_TEXT(prefix) BRV_TEXT_OF(prefix)

// The name of a C symbol as it is in the object file.
#define BRV_SYMBOL(name) BRV_TEXT(__USER_LABEL_PREFIX__) name

extern "C" {

// Binds the extension to its host. The kit defines it, and exports it under the symbol name "main". Returns 1 if the
// host's bundle is bound, else 0; with an argc of 0 or a null argv nothing is bound. It has another name here because
// C++ does not allow these arguments for main.
BRV_EXPORT int BrevixExtensionMain(int argc, void* argv) __asm__(BRV_SYMBOL("main"));

// Returns the version of the host's interface that the extension was built for: kBrvVersion.
BRV_EXPORT uint32 BrevixExtensionVersion();

// Prepares the extension, and sets *word to 0. context belongs to the host. Returns 1, or 0 if the extension cannot
// work.
BRV_EXPORT int BrevixExtensionInit(void* context, std::uint32_t* word);

// Fills in the three texts of a menu item, each ended by a 0 unit, and sets the record's last word to 0. Returns 1. For
// an index past the extension's last item it returns 0 and leaves the record alone; this is how the list ends.
BRV_EXPORT int BrevixExtensionEnumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);

// Carries out a menu item on the selected region. A null region means that nothing is selected: ask the user
// (kAlertQuestion) before you use fallback, which is the whole score. Pass context to alerts as their parent. Returns
// non-zero if the document was changed.
BRV_EXPORT int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);

// Releases what the extension holds: the host needs it no more.
BRV_EXPORT void BrevixExtensionTerminate();

// Returns 1 if the extension's items are enabled. Hosts may pass an argument, which is ignored.
BRV_EXPORT int BrevixExtensionGetMenuStatus();

// Older names of the entry points, which some hosts look for. The kit defines them. Each calls the entry point of the
// corresponding name with the same arguments.
BRV_EXPORT uint32 Ext_getversion();
BRV_EXPORT int Ext_init(void* context, std::uint32_t* word);
BRV_EXPORT int Ext_enumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);
BRV_EXPORT int Ext_invoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);
BRV_EXPORT void Ext_terminate();
BRV_EXPORT int Ext_getmenustatus();

}  // extern "C"

// Alerts: the kinds that BX_AlertMessage takes, and its answer.

inline constexpr ushort16 kAlertPlain = 0;      // a plain message
inline constexpr ushort16 kAlertQuestion = 33;  // a question with the answers yes and no
inline constexpr ushort16 kAlertError = 48;     // something that should not happen
inline constexpr ushort16 kAlertMessage = 64;   // the outcome of a command

inline constexpr short16 kAlertYes = 1;  // the answer to kAlertQuestion that means yes; all others mean no

// The loadFlag of BX_LoadTGF.
inline constexpr short16 kLoadFlag = 1;

// The keys that cancel a command, Command and period: the bit of Command in the modifier flags, and the key code of
// period.
inline constexpr unsigned long kCommandModifier = 0x100000;
inline constexpr unsigned char kPeriodKey = 47;
