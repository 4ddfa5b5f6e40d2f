// What the host calls. convention.h has the contract of each function.
#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/convention.h>
#include <BrvEDK/integerclasses.h>
#include <BrvEDK/portable.h>
#include <BrvEDK/stringids.h>

#include "chords.h"

namespace {

// The texts in Localizable.strings: of the one menu item, of the question and of the message.
constexpr int kItemTable = 20000;
constexpr int32 kConfirmation = StringID(20100, 1);
constexpr int32 kNothingHidden = StringID(20100, 2);

bool IsItem(ushort16 itemIndex) { return ZeroExtend16(itemIndex) == 0; }

}  // namespace

uint32 BrevixExtensionVersion() { return kBrvVersion; }

int BrevixExtensionInit(void*, std::uint32_t* word) {
  *word = 0;
  return 1;
}

int BrevixExtensionEnumerate_UTF16(void*, ushort16 itemIndex, MenuItemTexts* texts) {
  if (!IsItem(itemIndex)) return 0;
  PlugIn_GetStringResource(StringID(kItemTable, 1), texts->text1, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(StringID(kItemTable, 2), texts->text2, MenuItemTexts::kUnits);
  PlugIn_GetStringResource(StringID(kItemTable, 3), texts->text3, MenuItemTexts::kUnits);
  texts->reserved = 0;
  return 1;
}

int BrevixExtensionInvoke(void* context, ushort16 itemIndex, EREGION* region, EREGION* fallback) {
  if (!IsItem(itemIndex)) return 0;
  if (region == nullptr) {
    if (BX_AlertMessage(context, kAlertQuestion, kConfirmation, nullptr, kBrvVersion) != kAlertYes) return 0;
    region = fallback;
  }
  if (HideLedgerLinesOfChords(*region)) return 1;
  BX_AlertMessage(context, kAlertMessage, kNothingHidden, nullptr, kBrvVersion);
  return 0;
}

void BrevixExtensionTerminate() {}

int BrevixExtensionGetMenuStatus() { return 1; }
