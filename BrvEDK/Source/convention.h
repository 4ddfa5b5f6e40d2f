// The calling convention between a host and its extensions: what a host calls, in which order, and what the numbers
// mean that both sides use. The calls the other way are in brevixpdk.h.
//
// An extension defines the six entry points; the kit brings main and the older names. The host calls "main" first, then
// BrevixExtensionVersion, BrevixExtensionInit, and BrevixExtensionEnumerate_UTF16 for 0, 1, 2, ... until it answers 0;
// BrevixExtensionGetMenuStatus before it shows the menu, BrevixExtensionInvoke for each item that the user picks, and
// BrevixExtensionTerminate at the end. All of it happens on the main thread, one call at a time. [main-thread]
//
// Results are 16-bit: 1 is success, 0 failure, unless the comment says otherwise. Only the low 16 bits of an index
// count.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

// The name of a C symbol as the assembler has it.
#define BRV_TEXT_OF(prefix) #prefix
#define BRV_TEXT(prefix) BRV_TEXT_OF(prefix)
#define BRV_SYMBOL(name) BRV_TEXT(__USER_LABEL_PREFIX__) name

extern "C" {

// Exported under the symbol name "main", and defined by the kit: binds the extension to its host. Returns 1 if the
// host's bundle is bound, else 0; with an argc of 0 or a null argv nothing is bound. C++ gives a function of the name
// main no such arguments, hence the name.
BRV_EXPORT int BrevixExtensionMain(int argc, void* argv) __asm__(BRV_SYMBOL("main"));

// The version of the host's interface that the extension was built for: kBrvVersion.
BRV_EXPORT uint32 BrevixExtensionVersion();

// Makes the extension ready, and sets the word to 0. context is the host's own. Returns 1, or 0 if the extension cannot
// work.
BRV_EXPORT int BrevixExtensionInit(void* context, std::uint32_t* word);

// Fills in the three texts of a menu item, each ended by a 0 unit, and sets the record's last word to 0. Returns 1, or
// 0 for an index that is none of the extension's, which is how the list ends; the record is untouched then.
BRV_EXPORT int BrevixExtensionEnumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);

// Carries out a menu item on the selected region. With a null region nothing is selected: ask the user (kAlertQuestion)
// before you take the fallback, which is the whole score. context is the parent of all alerts. Returns non-zero if the
// document was changed.
BRV_EXPORT int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);

// The host is done with the extension, which releases what it holds.
BRV_EXPORT void BrevixExtensionTerminate();

// Whether the extension's items are enabled: 1 is yes. Hosts may leave an argument, which is not looked at.
BRV_EXPORT int BrevixExtensionGetMenuStatus();

// The older names that hosts look for too. Each leads to the entry point of the like name, with its arguments
// unchanged; the kit defines them.
BRV_EXPORT uint32 Ext_getversion();
BRV_EXPORT int Ext_init(void* context, std::uint32_t* word);
BRV_EXPORT int Ext_enumerate_UTF16(void* context, ushort16 itemIndex, MenuItemTexts* texts);
BRV_EXPORT int Ext_invoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback);
BRV_EXPORT void Ext_terminate();
BRV_EXPORT int Ext_getmenustatus();

}  // extern "C"

// Alerts: the kinds that BX_AlertMessage takes, and what it answers.

inline constexpr ushort16 kAlertPlain = 0;      // a text alone
inline constexpr ushort16 kAlertQuestion = 33;  // a question to be answered by yes or no
inline constexpr ushort16 kAlertError = 48;     // something that should not happen
inline constexpr ushort16 kAlertMessage = 64;   // what became of a command

inline constexpr short16 kAlertYes = 1;  // the answer to kAlertQuestion that means yes; any other means no

// The last argument of BX_LoadTGF.
inline constexpr short16 kLoadFlag = 1;

// The keys by which the user cancels, Command and period: the bit of Command among the modifier flags, and the key
// code.
inline constexpr unsigned long kCommandModifier = 0x100000;
inline constexpr unsigned char kPeriodKey = 47;
