#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/convention.h>
#include <BrvEDK/integerclasses.h>
#include <BrvEDK/portable.h>
#include <BrvEDK/stringids.h>

#include <string>

#include "report.h"

namespace {

// The extension has one menu item, with the texts 1 to 3 of table 20000.
constexpr int kItemTable = 20000;
constexpr int32 kConfirmation = StringID(20100, 1);

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
  const std::u16string text = ReportOn(*region);
  BX_AlertMessage_UTF16(context, kAlertMessage, 0, text.c_str(), kBrvVersion);
  return 0;  // nothing changed
}

void BrevixExtensionTerminate() {}

int BrevixExtensionGetMenuStatus() { return 1; }
